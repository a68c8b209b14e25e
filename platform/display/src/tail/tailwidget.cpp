#include "ostrel-display/tailwidget.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QLocale>
#include <QPalette>
#include <QTimer>
#include <QVBoxLayout>

#include "filetail.h"
#include "taillines.h"
#include "tailview.h"

namespace {

constexpr int lookMs = 100;
// How much is done before other events have their turn.
constexpr int readMs = 8;
constexpr int linesAtOnce = 400;

}  // namespace

struct TailWidget::Private {
    QTimer timer;
    FileTail file;
    TailLines lines;
    QString unfinished;  // as the view had it last
    bool isPaused = false;
    qint64 skipped = 0;
    QLabel* notice = nullptr;
    TailView* view = nullptr;
};

TailWidget::TailWidget(QWidget* parent) : QWidget(parent), d(std::make_unique<Private>()) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    d->notice = new QLabel(this);
    d->notice->setObjectName(QStringLiteral("notice"));
    d->notice->setMargin(2);
    d->notice->hide();
    d->view = new TailView(this);
    d->view->setObjectName(QStringLiteral("view"));
    column->addWidget(d->notice);
    column->addWidget(d->view);
    setFocusProxy(d->view);
    d->timer.setSingleShot(true);
    connect(&d->timer, &QTimer::timeout, this, &TailWidget::look);
}

TailWidget::~TailWidget() = default;

void TailWidget::setFileName(QString fileName) {
    clearContents();
    d->lines.clear();
    d->unfinished.clear();
    d->file.follow(fileName);
    d->view->setAccessibleName(fileName);
    d->timer.start(0);
}

void TailWidget::clearContents() {
    d->view->empty();
    d->skipped = 0;
    d->notice->hide();
}

void TailWidget::pause(bool isPaused) {
    d->isPaused = isPaused;
    if (!isPaused && d->timer.isActive())
        d->timer.start(0);
}

void TailWidget::setWrapText(bool isWrapped) {
    d->view->setLineWrapMode(isWrapped ? QPlainTextEdit::WidgetWidth : QPlainTextEdit::NoWrap);
}

void TailWidget::setTextColor(QColor color) {
    setColour(QPalette::Text, color);
}

void TailWidget::setgBackColor(QColor color) {
    setColour(QPalette::Base, color);
}

void TailWidget::setColour(int role, const QColor& color) {
    QPalette colours = d->view->palette();
    const auto palette_role = static_cast<QPalette::ColorRole>(role);
    colours.setColor(palette_role, color.isValid() ? color : palette().color(palette_role));
    d->view->setPalette(colours);
}

void TailWidget::setTextFont(QFont font) {
    d->view->setFont(font);
}

// What came while it was hidden.
void TailWidget::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (d->timer.isActive())
        d->timer.start(0);
}

void TailWidget::look() {
    QElapsedTimer spent;
    spent.start();
    bool isMore = true;
    while (isMore && spent.elapsed() < readMs) {
        const TailPiece piece = d->file.read();
        d->lines.add(piece);
        isMore = piece.isFollowed;
    }
    if (!d->isPaused && isVisible())
        isMore = showLines() || isMore;
    d->timer.start(isMore ? 0 : lookMs);
}

// True when more lines wait.
bool TailWidget::showLines() {
    tellSkipped();
    d->view->append(d->lines.take(linesAtOnce));
    if (!d->lines.isEmpty())
        return true;
    const QString unfinished = d->lines.unfinished();
    if (unfinished != d->unfinished && !unfinished.isNull())
        d->view->showUnfinished(unfinished);
    d->unfinished = unfinished;
    return false;
}

void TailWidget::tellSkipped() {
    const qint64 number = d->lines.takeSkipped();
    if (number == 0)
        return;
    const auto text = [](qint64 lines) {
        return lines == 1 ? tr("1 line skipped") : tr("%1 lines skipped").arg(QLocale().toString(lines));
    };
    d->view->append({QStringLiteral("--- %1 ---").arg(text(number))});
    d->skipped += number;
    d->notice->setText(text(d->skipped));
    d->notice->show();
}
