"""Takes the one message of a mailbox apart: read_mailbox.py MAILBOX ATTACHMENT

Says its subject and the text of its first part, a line each, and writes the bytes of its second part to ATTACHMENT.
"""
import email.policy
import mailbox
import pathlib
import sys

(message,) = (email.message_from_bytes(m.as_bytes(), policy=email.policy.default) for m in mailbox.mbox(sys.argv[1]))
text, attachment = message.iter_parts()
print(message["subject"])
print(text.get_payload(decode=True).decode().split("\n")[0].strip())
pathlib.Path(sys.argv[2]).write_bytes(attachment.get_payload(decode=True))
