#include "files.h"
#include "HelpBrowser.h"
#include "HelpWindow.h"
#include "viewer_options.h"

#include <QAccessible>
#include <QAction>
#include <QDir>
#include <QFile>
#include <QFontInfo>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSettings>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

class tst_HelpWindow : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void asksForATopicAndShowsIt();
    void missingTopicShowsTheOverview();
    void contentsShowTheirPages();
    void linksAreFollowedAndBackAndForwardStepAlong();
    void homeIsTheOverview();
    void linkOutOfTheHelpIsRefused();
    void linkToTheWebIsHandedOn();
    void pictureComesFromTheLanguageOrTheDirectory();
    void findGoesThroughThePageAndRoundItsEnds();
    void findTellsWhatIsNotThere();
    void escapeLeavesTheSearchThenTheWindow();
    void textSizeSizeAndPlaceAreKept();
    void textSizeHasBounds();
    void unreadableSettingsGiveTheDefaults();
    void everyControlHasAName();

private:
    void open(const QString &topic, const QString &locale = u"en_US"_s);
    [[nodiscard]] HelpBrowser *browser() const { return m_window->findChild<HelpBrowser *>(u"help_page"_s); }
    [[nodiscard]] QListWidget *contents() const { return m_window->findChild<QListWidget *>(u"help_contents"_s); }
    [[nodiscard]] QLineEdit *findText() const { return m_window->findChild<QLineEdit *>(u"find_text"_s); }
    [[nodiscard]] QString firstLine() const { return browser()->document()->firstBlock().text(); }
    [[nodiscard]] QAction *action(const QString &text) const;
    void followLink(const QString &href);
    void write(const QString &name, const QByteArray &bytes) const { write_file(m_directory->filePath(name), bytes); }

    std::optional<QTemporaryDir> m_directory;
    std::optional<HelpWindow> m_window;
};

void tst_HelpWindow::init()
{
    QSettings().clear();
    m_directory.emplace();
    write(u"Overview.htm"_s,
          R"(<title>Everything</title><h1>Overview</h1><a href="Scan.htm">Scanning</a> <a href="Mail.htm">Mail</a>)");
    write(u"Scan.htm"_s, "<title>Scanning</title><h1>Scan</h1><p>one two one</p><p>three one</p>");
    write(u"Mail.htm"_s, "<title>Mail</title><h1>Mail</h1>");
    write(u"de/Scan.htm"_s, "<title>Scannen</title><h1>Scan auf Deutsch</h1>");
}

void tst_HelpWindow::cleanup()
{
    m_window.reset();
    m_directory.reset();
}

void tst_HelpWindow::open(const QString &topic, const QString &locale)
{
    m_window.emplace(ViewerOptions{m_directory->path(), topic, u"Overview.htm"_s}, locale);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(&*m_window));
}

QAction *tst_HelpWindow::action(const QString &text) const
{
    const QList<QAction *> actions = m_window->findChildren<QAction *>();
    const auto found = std::ranges::find_if(actions, [&](const QAction *each) { return each->text() == text; });
    return found == actions.end() ? nullptr : *found;
}

void tst_HelpWindow::followLink(const QString &href)
{
    emit browser()->anchorClicked(browser()->source().resolved(QUrl(href)));
}

void tst_HelpWindow::asksForATopicAndShowsIt()
{
    open(u"Scan.htm"_s, u"de_DE"_s);

    QCOMPARE(firstLine(), u"Scan auf Deutsch"_s);
    QCOMPARE(m_window->windowTitle(), u"Scannen - Help"_s);
    QCOMPARE(contents()->currentItem()->text(), u"Scanning"_s); // the overview is not translated here
}

void tst_HelpWindow::missingTopicShowsTheOverview()
{
    open(u"Nowhere.htm"_s);

    QCOMPARE(firstLine(), u"Page not found"_s);
    QVERIFY(browser()->toPlainText().contains("Overview"_L1));
    QCOMPARE(contents()->currentItem(), nullptr);
}

void tst_HelpWindow::contentsShowTheirPages()
{
    open({});
    QCOMPARE(contents()->count(), 3);
    QCOMPARE(contents()->item(0)->text(), u"Everything"_s);

    QTest::mouseClick(contents()->viewport(), Qt::LeftButton, {},
                      contents()->visualItemRect(contents()->item(2)).center());

    QCOMPARE(firstLine(), u"Mail"_s);
}

void tst_HelpWindow::linksAreFollowedAndBackAndForwardStepAlong()
{
    open({});
    QVERIFY(!action(u"&Back"_s)->isEnabled());
    followLink(u"Scan.htm"_s);
    QCOMPARE(firstLine(), u"Scan"_s);
    QCOMPARE(contents()->currentRow(), 1);

    action(u"&Back"_s)->trigger();
    QCOMPARE(firstLine(), u"Overview"_s);
    QCOMPARE(contents()->currentRow(), 0);

    action(u"F&orward"_s)->trigger();
    QCOMPARE(firstLine(), u"Scan"_s);
    QVERIFY(!action(u"F&orward"_s)->isEnabled());
}

void tst_HelpWindow::homeIsTheOverview()
{
    open(u"Mail.htm"_s);

    QTest::keyClick(&*m_window, Qt::Key_Home, Qt::AltModifier);

    QCOMPARE(firstLine(), u"Overview"_s);
}

void tst_HelpWindow::linkOutOfTheHelpIsRefused()
{
    open(u"Scan.htm"_s);

    followLink(u"file:///etc/passwd"_s);

    QCOMPARE(firstLine(), u"Scan"_s);
    QCOMPARE(m_window->statusBar()->currentMessage(),
             u"The link to file:///etc/passwd leads out of the help and is not followed."_s);
}

void tst_HelpWindow::linkToTheWebIsHandedOn()
{
    open(u"Scan.htm"_s);
    disconnect(browser(), &HelpBrowser::desktopAsked, nullptr, nullptr); // no desktop stands behind this screen
    const QSignalSpy asked(browser(), &HelpBrowser::desktopAsked);

    followLink(u"https://example.org/"_s);

    QCOMPARE(asked.count(), 1);
    QCOMPARE(asked.constFirst().constFirst().toUrl(), QUrl(u"https://example.org/"_s));
    QCOMPARE(firstLine(), u"Scan"_s);
}

void tst_HelpWindow::pictureComesFromTheLanguageOrTheDirectory()
{
    QImage picture(7, 5, QImage::Format_RGB32);
    picture.fill(Qt::red);
    QVERIFY(picture.save(m_directory->filePath(u"red.png"_s)));
    write(u"de/Mail.htm"_s, R"(<p><img src="red.png"></p>)");
    open(u"Mail.htm"_s, u"de_DE"_s);

    // Painted once already, so it is kept as it was decoded.
    const QVariant shown = browser()->document()->resource(QTextDocument::ImageResource, QUrl(u"red.png"_s));
    QCOMPARE(shown.value<QPixmap>().size(), QSize(7, 5));
}

void tst_HelpWindow::findGoesThroughThePageAndRoundItsEnds()
{
    open(u"Scan.htm"_s);
    QTest::keyClick(&*m_window, Qt::Key_F, Qt::ControlModifier);
    QVERIFY(findText()->hasFocus());

    QTest::keyClicks(findText(), u"one"_s); // "Scan", "one two one", "three one"
    QCOMPARE(browser()->textCursor().selectionStart(), 5);
    QTest::keyClick(&*m_window, Qt::Key_F3);
    QCOMPARE(browser()->textCursor().selectionStart(), 13);
    QTest::keyClick(findText(), Qt::Key_Return);
    QCOMPARE(browser()->textCursor().selectionStart(), 23);
    QTest::keyClick(&*m_window, Qt::Key_F3);
    QCOMPARE(browser()->textCursor().selectionStart(), 5);
    QTest::keyClick(&*m_window, Qt::Key_F3, Qt::ShiftModifier);
    QCOMPARE(browser()->textCursor().selectionStart(), 23);
}

void tst_HelpWindow::findTellsWhatIsNotThere()
{
    open(u"Scan.htm"_s);
    QTest::keyClick(&*m_window, Qt::Key_F, Qt::ControlModifier);
    const auto *answer = m_window->findChild<QLabel *>(u"find_answer"_s);

    QTest::keyClicks(findText(), u"onex"_s);
    QCOMPARE(answer->text(), u"Not found"_s);
    QTest::keyClick(findText(), Qt::Key_Backspace);
    QCOMPARE(answer->text(), QString());
}

void tst_HelpWindow::escapeLeavesTheSearchThenTheWindow()
{
    open(u"Scan.htm"_s);
    QTest::keyClick(&*m_window, Qt::Key_F, Qt::ControlModifier);
    QVERIFY(findText()->isVisible());

    QTest::keyClick(&*m_window, Qt::Key_Escape);
    QVERIFY(!findText()->isVisible());
    QVERIFY(m_window->isVisible());
    QVERIFY(browser()->hasFocus());
    QTest::keyClick(&*m_window, Qt::Key_Escape);
    QVERIFY(!m_window->isVisible());
}

void tst_HelpWindow::textSizeSizeAndPlaceAreKept()
{
    open({});
    const int usual = QFontInfo(browser()->font()).pointSize();
    QTest::keyClick(&*m_window, Qt::Key_Plus, Qt::ControlModifier);
    action(u"&Larger"_s)->trigger();
    action(u"&Smaller"_s)->trigger();
    action(u"&Larger"_s)->trigger();
    QCOMPARE(QFontInfo(browser()->font()).pointSize(), usual + 2);
    m_window->resize(611, 433);
    m_window->close();

    open({});

    QCOMPARE(QFontInfo(browser()->font()).pointSize(), usual + 2);
    QCOMPARE(m_window->size(), QSize(611, 433));
}

void tst_HelpWindow::textSizeHasBounds()
{
    open({});
    const int usual = QFontInfo(browser()->font()).pointSize();

    for (int i = 0; i < 40; ++i)
        action(u"&Larger"_s)->trigger();
    QCOMPARE(QFontInfo(browser()->font()).pointSize(), usual + 16);
    for (int i = 0; i < 40; ++i)
        action(u"&Smaller"_s)->trigger();
    QCOMPARE(QFontInfo(browser()->font()).pointSize(), usual - 4);
}

void tst_HelpWindow::unreadableSettingsGiveTheDefaults()
{
    QSettings settings;
    settings.setValue("geometry"_L1, QByteArray("not a geometry"));
    settings.setValue("text_size"_L1, u"large"_s);
    settings.sync();

    open({});

    QCOMPARE(m_window->size(), QSize(840, 600));
}

void tst_HelpWindow::everyControlHasAName()
{
    open({});
    QTest::keyClick(&*m_window, Qt::Key_F, Qt::ControlModifier);

    QStringList nameless;
    for (const QWidget *const widget : m_window->findChildren<QWidget *>()) {
        if (widget->focusPolicy() == Qt::NoFocus || !widget->isVisible() || widget == browser()->viewport())
            continue;
        QAccessibleInterface *const seen = QAccessible::queryAccessibleInterface(const_cast<QWidget *>(widget));
        if (!seen || seen->text(QAccessible::Name).isEmpty())
            nameless.append(QString::fromLatin1(widget->metaObject()->className()) + u' ' + widget->objectName());
    }
    QCOMPARE(nameless, QStringList());
}

QTEST_MAIN(tst_HelpWindow)
#include "tst_HelpWindow.moc"
