#include "viewer_options.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_viewer_options : public QObject
{
    Q_OBJECT

private slots:
    void callOfTheImageManagerIsUnderstood();
    void optionsComeInAnyOrder();
    void unknownWordsAreIgnored();
    void valuesOfOptionsWithoutEffectAreNoOptions();
    void optionWithoutItsValueIsIgnored();
};

void tst_viewer_options::callOfTheImageManagerIsUnderstood()
{
    const QStringList words = u"-s /opt/pkg/share/help -u ImageEditor.htm -g Overview.htm -n 0 -h 1 -f 0"_s.split(u' ');

    const ViewerOptions options = viewer_options(words);

    QCOMPARE(options.directory, u"/opt/pkg/share/help"_s);
    QCOMPARE(options.topic, u"ImageEditor.htm"_s);
    QCOMPARE(options.overview, u"Overview.htm"_s);
}

void tst_viewer_options::optionsComeInAnyOrder()
{
    const ViewerOptions options = viewer_options({u"-f"_s, u"0"_s, u"-g"_s, u"o"_s, u"-u"_s, u"t"_s, u"-s"_s, u"d"_s});

    QCOMPARE(options.directory, u"d"_s);
    QCOMPARE(options.topic, u"t"_s);
    QCOMPARE(options.overview, u"o"_s);
}

void tst_viewer_options::unknownWordsAreIgnored()
{
    const ViewerOptions options = viewer_options({u"--big"_s, u"word"_s, u"-u"_s, u"t"_s, u"-x"_s});

    QCOMPARE(options.topic, u"t"_s);
    QVERIFY(options.directory.isEmpty());
}

void tst_viewer_options::valuesOfOptionsWithoutEffectAreNoOptions()
{
    const ViewerOptions options = viewer_options(
        {u"--ui-about"_s, u"-u"_s, u"--res-about"_s, u"-s"_s, u"--translate"_s, u"-g"_s, u"-u"_s, u"t"_s});

    QCOMPARE(options.topic, u"t"_s);
    QVERIFY(options.directory.isEmpty());
    QVERIFY(options.overview.isEmpty());
}

void tst_viewer_options::optionWithoutItsValueIsIgnored()
{
    const ViewerOptions options = viewer_options({u"-s"_s, u"d"_s, u"-u"_s});

    QCOMPARE(options.directory, u"d"_s);
    QVERIFY(options.topic.isEmpty());
}

QTEST_GUILESS_MAIN(tst_viewer_options)
#include "tst_viewer_options.moc"
