#include "outside_programs.h"

#include "ChildScope.h"

#include <array>
#include <cstdlib>

using namespace Qt::StringLiterals;

int start_in_background(const QString &command)
{
    const ChildScope scope;
    return std::system((command + " &"_L1).toLocal8Bit().constData());
}

ProgramRun run_to_end(const QString &command)
{
    std::FILE *output = nullptr;
    {
        const ChildScope scope;
        output = ::popen(command.toLocal8Bit().constData(), "r");
    }
    if (!output)
        return ProgramRun::NotStarted;
    const bool isRead = read_to_end(output);
    (void)::pclose(output); // waits; a recogniser that fails may have written something all the same
    return isRead ? ProgramRun::Ended : ProgramRun::NotRead;
}

bool read_to_end(std::FILE *stream)
{
    std::array<char, 1024> dropped{};
    while (std::fgets(dropped.data(), dropped.size(), stream) != nullptr)
        continue;
    return std::ferror(stream) == 0;
}
