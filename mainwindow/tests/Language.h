#pragma once

#include <QCoreApplication>
#include <QString>
#include <QTranslator>

#include <memory>
#include <vector>

/// The package's catalogues of a language while the object lives.
class Language
{
public:
    explicit Language(const QString &language)
    {
        for (const char *const name : {"ImageManager", "imageview", "utils"}) {
            auto translator = std::make_unique<QTranslator>();
            if (!translator->load(QString::fromLatin1(name) + QLatin1Char('_') + language,
                                  QStringLiteral(IM_PACKAGE_SHARE "/tr")))
                qFatal("no catalogue %s for %s", name, qPrintable(language));
            QCoreApplication::installTranslator(translator.get());
            m_translators.push_back(std::move(translator));
        }
    }

private:
    std::vector<std::unique_ptr<QTranslator>> m_translators;
};
