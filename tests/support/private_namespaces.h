#pragma once

/// Namespaces of the calling process: what it mounts and what it sends over the network stay its own, and nothing of
/// the machine is changed, its "/" not even touched. The plain way needs the right to administrate; without it, root or
/// not, a user namespace gives it. Where no way is left the process ends as a skipped test (skipped_test.h).
///
/// Threads: to be called first thing in main(), as threads that exist already would stay behind. Children inherit.

/// Takes the process out of the mounts of the others. Again: does nothing.
void leave_common_mounts();

/// Gives the process a network of its own that holds a loopback device, up, and nothing else: names and addresses
/// outside cannot be reached. Sockets that stand in a directory, such as the X server's, are no part of it. Again:
/// does nothing.
void leave_common_network();

/// As QTEST_MAIN(), for a test program that leaves something first: `TEST_MAIN_APART(QApplication, tst_Smtp,
/// leave_common_network)`.
#define TEST_MAIN_APART(Application, Test, leave)                                                                      \
    int main(int argc, char **argv)                                                                                    \
    {                                                                                                                  \
        leave();                                                                                                       \
        const Application application(argc, argv);                                                                     \
        Test test;                                                                                                     \
        return QTest::qExec(&test, argc, argv);                                                                        \
    }

/// Makes a process that may administrate one that may do no more than others: nobody instead of root, or without what
/// it may do in its user namespace.
/// @return false if it stays what it was
[[nodiscard]] bool give_up_privileges();
