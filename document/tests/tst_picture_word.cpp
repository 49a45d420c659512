#include "files.h"
#include "picture_word.h"

#include <QBuffer>
#include <QImageReader>
#include <QImageWriter>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_picture_word : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(directory.isValid()); }

    void isTheToolkitsWordUnderAnyName_data();
    void isTheToolkitsWordUnderAnyName();
    void aFileThatCannotBeOpenedHasNone() { QCOMPARE(picture_word(directory.filePath(u"none"_s)), QString()); }
    void onlyFormatsOfOnePictureAreSingle();

private:
    const QTemporaryDir directory;
};

void tst_picture_word::isTheToolkitsWordUnderAnyName_data()
{
    QTest::addColumn<QByteArray>("bytes");
    for (const QByteArray &format : QImageWriter::supportedImageFormats()) {
        QBuffer buffer;
        QImage image(9, 7, QImage::Format_RGB32);
        image.fill(Qt::red);
        if (QImageWriter(&buffer, format).write(image))
            QTest::newRow(format.constData()) << buffer.data();
    }
    QTest::newRow("JPEG cut behind its mark") << "\xff\xd8\xff"_ba;
    QTest::newRow("JPEG cut within its mark") << "\xff\xd8"_ba;
    QTest::newRow("PNG's mark alone") << "\x89PNG\r\n\x1a\n"_ba;
    QTest::newRow("PNG's mark with other line ends") << "\x89PNG\n\x1a\nabcdefgh"_ba;
    QTest::newRow("PNG's mark cut") << "\x89PNG\r\n\x1a"_ba;
    QTest::newRow("nothing") << ""_ba;
    QTest::newRow("text") << "This is text, and no picture at all."_ba;
}

void tst_picture_word::isTheToolkitsWordUnderAnyName()
{
    QFETCH(const QByteArray, bytes);
    for (const QString &end :
         {u"jpg"_s, u"png"_s, u"PNG"_s, u"tga"_s, u"tif"_s, u"svg"_s, u"wbmp"_s, u"icns"_s, u"no"_s}) {
        const QString path = directory.filePath("page."_L1 + end);
        write_file(path, bytes);

        QCOMPARE(picture_word(path), QString::fromLatin1(QImageReader::imageFormat(path)));
    }
}

void tst_picture_word::onlyFormatsOfOnePictureAreSingle()
{
    for (const auto &[format, word] :
         {std::pair{"jpg", u"jpeg"_s}, {"png", u"png"_s}, {"tiff", u""_s}, {"gif", u""_s}, {"bmp", u""_s}}) {
        QBuffer buffer;
        QImage(9, 7, QImage::Format_RGB32).save(&buffer, format);
        QVERIFY(buffer.open(QIODevice::ReadOnly));

        QCOMPARE(single_picture_word(buffer), word);
        QVERIFY(word.isEmpty() || QImageReader(&buffer).imageCount() == 1);
    }
}

QTEST_GUILESS_MAIN(tst_picture_word)
#include "tst_picture_word.moc"
