// How soon a page is on its way to programs outside.

#include "ImageManager.h"
#include "LeftoverWatch.h"
#include "measured_pages.h"
#include "page_files.h"
#include "plain_ways.h"
#include "Q3Process.h"
#include "Row.h"
#include "ToolSettings.h"

#include <QAction>
#include <QEventLoop>
#include <QFile>
#include <QTemporaryDir>

#include <array>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// The main window with a page, in a home of its own and with an lpr that takes each file at once.
class ToolWindow
{
public:
    ToolWindow(int depth, const Surroundings &surroundings) : m_formerPath(qgetenv("PATH"))
    {
        qputenv("HOME", QFile::encodeName(m_home.path()));
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_home.path()));
        makeLpr();
        m_window.emplace();
        m_window->show();
        auto page = std::make_unique<ImageDocument>(QString(), QString());
        if (!page->addPage(load_page(depth, surroundings)) || !m_window->addDocumentTab(page.release()))
            qFatal("the window does not take the page");
    }
    ~ToolWindow() { qputenv("PATH", m_formerPath); }
    Q_DISABLE_COPY_MOVE(ToolWindow)

    void trigger(const QString &name) const { m_window->findChild<QAction *>(name)->trigger(); }
    [[nodiscard]] QString inHome(const QString &name) const { return m_home.filePath(name); }

    /// Waits for the end of a print job.
    void finishJob() const
    {
        QEventLoop waiting;
        QObject::connect(m_window->findChild<Q3Process *>(), &QObject::destroyed, &waiting, &QEventLoop::quit);
        waiting.exec();
    }

private:
    void makeLpr() const
    {
        QFile lpr(inHome(u"lpr"_s));
        if (!lpr.open(QIODevice::WriteOnly) || lpr.write("#!/bin/sh\n") < 0
            || !lpr.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner))
            qFatal("cannot make a program");
        qputenv("PATH", QFile::encodeName(m_home.path()) + ':' + m_formerPath);
    }

    QTemporaryDir m_home;
    QByteArray m_formerPath;
    std::optional<ImageManager> m_window;
};

/// From the command to the start of lpr, which the command waits for.
Side print_side(int depth)
{
    const auto prepare = [=](const Surroundings &surroundings) -> Round {
        const auto window = std::make_shared<ToolWindow>(depth, surroundings);
        return [window] {
            const double seconds = seconds_of([&] { window->trigger(u"file_print"_s); });
            window->finishJob();
            return std::optional(seconds);
        };
    };
    return {u"ImageManager"_s, Side::OwnProcess, prepare};
}

using WritePage = std::function<bool(const QString &path, const QImage &page)>;

bool save_for_printing(const QString &path, const QImage &page)
{
    QFile file;
    return create_print_file(path, file) && write_print_file(file, page);
}

WritePage toolkit_writer(const char *format)
{
    return [format](const QString &path, const QImage &page) { return page.save(path, format); };
}

Side seconds_side(const QString &name, int depth, const WritePage &write)
{
    const auto prepare = [=](const Surroundings &surroundings) -> Round {
        const auto files = std::make_shared<NewFiles>();
        return [=, page = load_page(depth, surroundings)] {
            const QString path = files->next();
            return timed([&] { return write(path, page); });
        };
    };
    return {name, Side::OwnProcess, prepare};
}

Side bytes_side(const QString &name, int depth, const WritePage &write)
{
    const auto prepare = [=](const Surroundings &surroundings) -> Round {
        const auto files = std::make_shared<NewFiles>();
        return [=, page = load_page(depth, surroundings)]() -> std::optional<double> {
            const QString path = files->next();
            if (!write(path, page))
                return {};
            return static_cast<double>(QFile(path).size());
        };
    };
    return {name, Side::OwnProcess, prepare};
}

/// From the command to the first word of the program that it starts.
Side editor_side()
{
    const auto prepare = [](const Surroundings &surroundings) -> Round {
        const auto window = std::make_shared<ToolWindow>(32, surroundings);
        const QByteArray words = QFile::encodeName(window->inHome(u"words"_s));
        if (::mkfifo(words, 0600) != 0)
            qFatal("cannot make a pipe");
        ToolSettings::set_graphics_editor(u"echo >%1"_s.arg(QFile::decodeName(words)));
        return [=, pipe = ::open(words, O_RDWR | O_CLOEXEC)] {
            QFile::remove(window->inHome(u"gimp_input.bmp"_s));
            return timed([&] {
                window->trigger(u"tool_graphics_editor"_s);
                std::array<char, 1> word{};
                return ::read(pipe, word.data(), word.size()) == 1;
            });
        };
    };
    return {u"ImageManager"_s, Side::OwnProcess, prepare};
}

Side bmp_bytes_side()
{
    const auto prepare = [](const Surroundings &surroundings) -> Round {
        const auto files = std::make_shared<NewFiles>();
        QFile file(files->next());
        if (!load_page(32, surroundings).save(file.fileName(), "BMP") || !file.open(QIODevice::ReadOnly))
            qFatal("cannot make the file");
        return [=, bytes = file.readAll()] {
            const QString path = files->next();
            return timed([&] { return write_bytes(path, bytes); });
        };
    };
    return {u"write(2)"_s, Side::OwnProcess, prepare};
}

/// What printing does beside making the page's file, with a page as large in memory.
Side start_side()
{
    const auto prepare = [](const Surroundings &surroundings) -> Round {
        const auto window = std::make_shared<ToolWindow>(32, surroundings);
        return [window] {
            const QString path = window->inHome(u"page.png"_s);
            std::unique_ptr<LeftoverWatch> watch;
            Q3Process lpr;
            lpr.addArgument(u"lpr"_s);
            lpr.addArgument(path);
            QEventLoop waiting;
            QObject::connect(&lpr, &Q3Process::processExited, &waiting, &QEventLoop::quit);
            const std::optional<double> seconds = timed([&] {
                watch = LeftoverWatch::start(print_file_name());
                if (!watch || !lpr.start())
                    return false;
                watch->setReader(lpr.processIdentifier());
                return true;
            });
            if (seconds)
                waiting.exec();
            if (watch)
                watch->dismiss();
            return seconds;
        };
    };
    return {u"start of lpr"_s, Side::OwnProcess, prepare};
}

Row print_row(int number, const QString &job, int depth, double secondsGoal, double bytesGoal)
{
    const QString toolkit = u"QImage::save PNG"_s;
    return {number,
            job,
            {{toolkit, Bar::SecondsRatio, secondsGoal, print_side(depth),
              seconds_side(toolkit, depth, toolkit_writer("PNG"))},
             {toolkit + ", file"_L1, Bar::BytesRatio, bytesGoal, bytes_side(u"print file"_s, depth, save_for_printing),
              bytes_side(toolkit, depth, toolkit_writer("PNG"))}}};
}

Row recogniser_row(int number, const QString &job, int depth, double goal)
{
    return {number,
            job,
            {{u"QImage::save PBM"_s, Bar::SecondsRatio, goal,
              seconds_side(u"recogniser file"_s, depth, write_recogniser_file),
              seconds_side(u"QImage::save"_s, depth, toolkit_writer("PBM"))}}};
}

} // namespace

QList<Row> tool_rows()
{
    return {
        print_row(71, u"print, command to lpr started"_s, 32, 0.35, 1.25),
        print_row(72, u"print 1-bit page"_s, 1, 0.50, 2.0),
        {73,
         u"editor, command to program started"_s,
         {{u"write(2)"_s, Bar::SecondsRatio, 2.0, editor_side(), bmp_bytes_side()}}},
        recogniser_row(74, u"recogniser's file of a colour page"_s, 32, 0.70),
        recogniser_row(75, u"recogniser's file of a 1-bit page"_s, 1, 1.10),
        {76, u"window blocked by Print beyond the save"_s, {{u"-"_s, Bar::Seconds, 0.020, start_side(), {}}}},
    };
}
