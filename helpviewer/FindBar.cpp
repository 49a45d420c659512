#include "FindBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTextBrowser>

using namespace Qt::StringLiterals;

FindBar::FindBar(QTextBrowser *browser, QWidget *parent) :
    QWidget(parent),
    m_browser(browser),
    m_text(new QLineEdit(this)),
    m_answer(new QLabel(this))
{
    auto *caption = new QLabel(tr("&Find:"), this);
    caption->setBuddy(m_text);
    m_text->setObjectName("find_text"_L1);
    m_text->setAccessibleName(tr("Text to find in the page"));
    m_answer->setObjectName("find_answer"_L1);
    auto *previous = new QPushButton(tr("&Previous"), this);
    auto *next = new QPushButton(tr("&Next"), this);

    auto *row = new QHBoxLayout(this);
    row->addWidget(caption);
    row->addWidget(m_text);
    row->addWidget(previous);
    row->addWidget(next);
    row->addWidget(m_answer, 1);

    connect(m_text, &QLineEdit::textEdited, this, &FindBar::findWhileTyping);
    connect(m_text, &QLineEdit::returnPressed, this, &FindBar::findNext);
    connect(previous, &QPushButton::clicked, this, &FindBar::findPrevious);
    connect(next, &QPushButton::clicked, this, &FindBar::findNext);
}

void FindBar::open()
{
    show();
    m_text->selectAll();
    m_text->setFocus(Qt::ShortcutFocusReason);
}

void FindBar::findNext()
{
    if (m_text->text().isEmpty())
        open();
    else
        tell(find(false));
}

void FindBar::findPrevious()
{
    if (m_text->text().isEmpty())
        open();
    else
        tell(find(true));
}

void FindBar::leave()
{
    hide();
    m_browser->setFocus(Qt::OtherFocusReason);
}

void FindBar::findWhileTyping()
{
    // From the start of what is found already, so that a longer text stays at its place.
    QTextCursor cursor = m_browser->textCursor();
    cursor.setPosition(cursor.selectionStart());
    m_browser->setTextCursor(cursor);
    tell(m_text->text().isEmpty() || find(false));
}

bool FindBar::find(bool bBackward)
{
    const QTextDocument::FindFlags flags = bBackward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    if (m_browser->find(m_text->text(), flags))
        return true;
    const QTextCursor start = m_browser->textCursor();
    m_browser->moveCursor(bBackward ? QTextCursor::End : QTextCursor::Start);
    if (m_browser->find(m_text->text(), flags))
        return true;
    m_browser->setTextCursor(start);
    return false;
}

void FindBar::tell(bool bFound)
{
    m_answer->setText(bFound ? QString() : tr("Not found"));
}
