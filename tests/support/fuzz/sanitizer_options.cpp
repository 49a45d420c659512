// What the sanitizers ask a program for, by names of theirs; without them nobody calls this.

extern "C" {

// NOLINTBEGIN(bugprone-reserved-identifier, readability-identifier-naming)

// What a file claims to need is refused like on a machine of little memory, not found to be a mistake.
const char *__asan_default_options()
{
    return "allocator_may_return_null=1:max_allocation_size_mb=320:detect_stack_use_after_return=0";
}

const char *__ubsan_default_options()
{
    return "print_stacktrace=1";
}

// NOLINTEND(bugprone-reserved-identifier, readability-identifier-naming)
}
