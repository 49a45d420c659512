#include "translations.h"

#include "AppContext.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <algorithm>
#include <array>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// Loads the catalogue of a name from the first directory that has it. False if none has.
bool load_catalogue(QTranslator &translator, const QString &name, const QStringList &directories, const QString &locale)
{
    return std::ranges::any_of(directories, [&](const QString &directory) {
        return translator.load(name + '-'_L1 + locale, directory) || translator.load(name + '_'_L1 + locale, directory);
    });
}

/// The user's locale for texts, by the environment alone: the system need not have it generated.
QString user_locale()
{
    return QLocale::system().name().left(5); // language and country
}

} // namespace

void load_translations(const char *const *names)
{
    QStringList list;
    for (; *names; ++names)
        list.append(QString::fromUtf8(*names));
    load_program_translations(list, {});
}

void load_program_translations(const QStringList &names, const QStringList &directories)
{
    load_translations_from(names, directories, QDir(QFile::decodeName(actx.share_dir)).filePath(u"tr"_s));
}

void load_translations_from(const QStringList &names, QStringList directories, const QString &directory)
{
    directories.append(directory);
    load_translations_with_toolkit(names, directories);
}

void load_translations_with_toolkit(QStringList names, QStringList directories)
{
    names.append(u"qt"_s);
    directories.prepend(QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    install_translations(names, directories, user_locale());
}

void install_translations(const QStringList &names, const QStringList &directories, const QString &locale)
{
    // Never deleted: texts are looked up until the process ends, also from destructors of static objects.
    static auto &installed = *new std::vector<std::unique_ptr<QTranslator>>;

    for (const QString &name : names) {
        auto translator = std::make_unique<QTranslator>();
        if (!load_catalogue(*translator, name, directories, locale))
            continue;
        QCoreApplication::installTranslator(translator.get());
        installed.push_back(std::move(translator));
    }
}
