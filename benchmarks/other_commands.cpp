#include "other_commands.h"

#include "measured_pages.h"
#include "StartedProgram.h"

#include <memory>

using namespace Qt::StringLiterals;

QStringList words_of(const Command &command, const QString &input, const QString &output,
                     const Surroundings &surroundings)
{
    QStringList words = command.words;
    return words.replaceInStrings(u"%1"_s, input)
        .replaceInStrings(u"%2"_s, output)
        .replaceInStrings(u"%3"_s, surroundings.inputs);
}

Side command_side(const Command &command, const char *input)
{
    const auto prepare = [=](const Surroundings &surroundings) -> Round {
        const auto files = std::make_shared<NewFiles>(u".tif"_s);
        return [=, path = input_path(input, surroundings)] {
            return StartedProgram(words_of(command, path, files->next(), surroundings)).secondsToEnd();
        };
    };
    return {command.name, Side::Here, prepare};
}

Command image_magick(const QStringList &words)
{
    // Called by its full name, as other programs are called "convert" too.
    return {.name = u"ImageMagick"_s,
            .words = QStringList{u"env"_s, u"MAGICK_CONFIGURE_PATH=%3/imagemagick"_s, u"convert-im6.q16"_s, u"%1"_s}
                + words + QStringList{u"-compress"_s, u"None"_s, u"tiff:%2"_s}};
}
