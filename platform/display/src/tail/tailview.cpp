#include "tailview.h"

#include <QScrollBar>
#include <QTextBlock>
#include <algorithm>

#include "taillines.h"

TailView::TailView(QWidget* parent) : QPlainTextEdit(parent) {
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setLineWrapMode(NoWrap);
    setTabChangesFocus(true);
    // The menu is that of the widgets around.
    setContextMenuPolicy(Qt::NoContextMenu);
    QScrollBar* bar = verticalScrollBar();
    connect(bar, &QScrollBar::valueChanged, this, [this, bar](int value) {
        if (!m_isChanging)
            m_isAtEnd = value == bar->maximum();
    });
    connect(bar, &QScrollBar::rangeChanged, this, [this, bar](int, int maximum) {
        if (!m_isChanging && m_isAtEnd)
            bar->setValue(maximum);
    });
}

void TailView::append(const QStringList& lines) {
    if (lines.isEmpty())
        return;
    put(lines);
    m_endsUnfinished = false;
}

void TailView::showUnfinished(const QString& line) {
    put({line});
    m_endsUnfinished = true;
}

void TailView::empty() {
    m_sizes.clear();
    m_characters = 0;
    m_endsUnfinished = false;
    clear();
    m_isAtEnd = true;
}

void TailView::put(const QStringList& lines) {
    keepingPlace([&] {
        QTextCursor cursor(document());
        cursor.beginEditBlock();
        cursor.movePosition(QTextCursor::End);
        if (m_endsUnfinished) {
            cursor.movePosition(QTextCursor::StartOfBlock, QTextCursor::KeepAnchor);
            m_characters -= m_sizes.back();
            m_sizes.pop_back();
        } else if (!m_sizes.empty()) {
            cursor.insertBlock();
        }
        cursor.insertText(lines.join(QLatin1Char('\n')));
        for (const QString& line : lines) {
            m_sizes.push_back(line.size());
            m_characters += line.size();
        }
        const int dropped = dropOldest(&cursor);
        cursor.endEditBlock();
        return dropped;
    });
}

// Returns how many.
int TailView::dropOldest(QTextCursor* cursor) {
    int dropped = 0;
    while (m_sizes.size() > TailBound::lines || m_characters > TailBound::bytes) {
        m_characters -= m_sizes.front();
        m_sizes.pop_front();
        ++dropped;
    }
    if (dropped == 0)
        return 0;
    cursor->setPosition(0);
    cursor->setPosition(document()->findBlockByNumber(dropped).position(), QTextCursor::KeepAnchor);
    cursor->removeSelectedText();
    return dropped;
}

// The change returns how many lines it took away from the beginning.
template <class Change>
void TailView::keepingPlace(Change change) {
    QScrollBar* bar = verticalScrollBar();
    const QTextBlock top = firstVisibleBlock();
    const int number = top.blockNumber();
    const int offset = bar->value() - top.firstLineNumber();
    m_isChanging = true;
    const int dropped = change();
    const QTextBlock place = document()->findBlockByNumber(std::max(number - dropped, 0));
    bar->setValue(m_isAtEnd ? bar->maximum() : place.firstLineNumber() + offset);
    m_isChanging = false;
}
