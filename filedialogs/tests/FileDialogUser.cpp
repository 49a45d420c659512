#include "FileDialogUser.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Long enough for any box to be answered by whoever waits for it.
constexpr int unansweredMs = 3000;

void fail(const char *reason)
{
    QTest::qFail(reason, __FILE__, __LINE__);
}

QLineEdit *name_field(const ImageFileDialog &dialog)
{
    return dialog.findChild<QLineEdit *>("fileNameEdit"_L1);
}

QComboBox *filter_box(const ImageFileDialog &dialog)
{
    return dialog.findChild<QComboBox *>("fileTypeCombo"_L1);
}

void close_if_unanswered(QMessageBox *box)
{
    QTimer::singleShot(unansweredMs, box, [box] {
        if (!box->isVisible())
            return;
        fail(qPrintable("unexpected message box: "_L1 + box->text()));
        box->done(QMessageBox::NoButton);
    });
}

} // namespace

QString name_in(const ImageFileDialog &dialog)
{
    return name_field(dialog)->text();
}

void type_name(const ImageFileDialog &dialog, const QString &name)
{
    QLineEdit *const field = name_field(dialog);
    field->setFocus();
    field->selectAll();
    QTest::keyClick(field, Qt::Key_Delete);
    // QTest::keyClicks() knows no letters beyond Latin-1.
    for (const QChar letter : name) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(letter));
        QApplication::sendEvent(field, &press);
    }
}

void choose_filter(const ImageFileDialog &dialog, const QString &filter)
{
    QComboBox *const box = filter_box(dialog);
    const int index = box->findText(filter);
    if (index == -1) {
        fail(qPrintable("no such filter: "_L1 + filter));
        return;
    }
    box->setFocus();
    box->showPopup();
    box->view()->setCurrentIndex(box->model()->index(index, 0));
    QTest::keyClick(box->view(), Qt::Key_Return);
}

void press_accept(const ImageFileDialog &dialog)
{
    const auto *buttons = dialog.findChild<QDialogButtonBox *>("buttonBox"_L1);
    const bool saves = dialog.acceptMode() == QFileDialog::AcceptSave;
    QTest::mouseClick(buttons->button(saves ? QDialogButtonBox::Save : QDialogButtonBox::Open), Qt::LeftButton);
}

FileDialogUser::FileDialogUser(Work work) : m_work(std::move(work))
{
    qApp->installEventFilter(this);
}

FileDialogUser::~FileDialogUser()
{
    if (m_work)
        fail("no file dialog came");
}

QString FileDialogUser::name() const
{
    return name_in(*m_dialog);
}

QString FileDialogUser::filter() const
{
    return filter_box(*m_dialog)->currentText();
}

void FileDialogUser::type(const QString &name) const
{
    type_name(*m_dialog, name);
}

void FileDialogUser::chooseFilter(const QString &filter) const
{
    choose_filter(*m_dialog, filter);
}

void FileDialogUser::accept() const
{
    press_accept(*m_dialog);
}

void FileDialogUser::pressReturn() const
{
    QTest::keyClick(name_field(*m_dialog), Qt::Key_Return);
}

void FileDialogUser::cancel() const
{
    QTest::mouseClick(m_dialog->findChild<QDialogButtonBox *>("buttonBox"_L1)->button(QDialogButtonBox::Cancel),
                      Qt::LeftButton);
}

void FileDialogUser::forceAccept() const
{
    QDialog &dialog = *m_dialog;
    dialog.done(QDialog::Accepted);
}

bool FileDialogUser::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Show)
        return false;
    if (auto *const box = qobject_cast<QMessageBox *>(watched))
        close_if_unanswered(box);
    auto *const dialog = qobject_cast<ImageFileDialog *>(watched);
    if (dialog != nullptr && dialog->isModal() && m_work) {
        m_dialog = dialog;
        // The dialog runs its event loop only after it has been shown.
        QMetaObject::invokeMethod(this, &FileDialogUser::run, Qt::QueuedConnection);
    }
    return false;
}

void FileDialogUser::run()
{
    const Work work = std::exchange(m_work, {});
    if (!isOpen() || !QTest::qWaitForWindowActive(m_dialog))
        fail("the file dialog is not on the screen");
    else
        work(*this);
    if (isOpen()) {
        fail("the file dialog was left open");
        m_dialog->reject();
    }
}
