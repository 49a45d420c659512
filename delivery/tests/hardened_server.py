"""An SMTP server that refuses bare line feeds, and a reader that takes each message apart.

hardened_server.py ADDRESS PORT DIRECTORY

Says "ready" once it listens. Of each message it says a line of JSON: the headers, and the parts with their type, file
name, text and the place of their decoded bytes below DIRECTORY. It ends with its standard input.
"""
import email
import email.policy
import json
import pathlib
import sys

from aiosmtpd.controller import Controller


class Reader:
    def __init__(self, directory):
        self.directory = pathlib.Path(directory)
        self.count = 0

    async def handle_DATA(self, server, session, envelope):
        message = email.message_from_bytes(envelope.content, policy=email.policy.default)
        parts = []
        for part in message.iter_parts():
            self.count += 1
            path = self.directory / f"part-{self.count}"
            path.write_bytes(part.get_payload(decode=True))
            parts.append({"type": part.get_content_type(), "name": part.get_filename() or "", "file": str(path),
                          "text": part.get_content() if part.get_content_maintype() == "text" else "",
                          "defects": len(part.defects)})
        headers = {name.lower(): str(value) for name, value in message.items()}
        print(json.dumps({"headers": headers, "parts": parts, "defects": len(message.defects),
                          "sender": envelope.mail_from, "recipients": envelope.rcpt_tos}), flush=True)
        return "250 taken"


address, port, directory = sys.argv[1:]
controller = Controller(Reader(directory), hostname=address, port=int(port))
controller.start()
print("ready", flush=True)
sys.stdin.read()
controller.stop()
