#include "widgets/zel_cmdbutton.h"

#include <QDebug>

ZelCmdButton::ZelCmdButton(QWidget* parent)
    : CommandButtonBase(parent, "ZelCmdButton", "zel_cmdbutton", QStringLiteral("Button")) {
    connectToOperator(SLOT(viewProperties()), SLOT(ZelCmdButton_clicked()));
}

ZelCmdButton::~ZelCmdButton() = default;

void ZelCmdButton::setCmd(const QString& commands) {
    cmd = commands;
    memory.rememberLive("cmd", cmd);
}

void ZelCmdButton::setToolTipString(const QString& toolTip) {
    setToolTip(toolTip);
    memory.rememberLive("toolTip", toolTip);
}

// Kept: where no command starts nothing enables the button again.
void ZelCmdButton::ZelCmdButton_clicked() {
    setEnabled(false);
    numFutures = 0;
    const QStringList pieces = commandPieces(cmd);
    for (int i = 0; i < pieces.size(); ++i) {
        const QStringList words = commandWords(pieces[i]);
        if (!words.isEmpty() && !start(words, i))
            return;
    }
}

// False without memory: the rest of the click is dropped.
bool ZelCmdButton::start(const QStringList& words, int piece) {
    BUTTON_ARGS& vector = button_clicks[button_click_count];
    switch (fillArguments(words, &vector)) {
        case Allocated::All:
            break;
        case Allocated::NoVector:
            qDebug("Calloc failed buttonClick Failed");
            return false;
        case Allocated::NoWord:
            qDebug("Calloc Failed buttonClickFailed ");
            return false;
    }
    const QFuture<void> future = startCommand(vector, detached ? Child::Forgotten : Child::Awaited);
    button_click_count = (button_click_count + 1) % button_clicks.size();
    setEnabled(detached);
    if (!detached) {
        ++numFutures;
        tellWhenFinished(future, piece, this, SLOT(futureFinished()));
    }
    return true;
}

void ZelCmdButton::viewProperties() {
    memory.editProperties();
}

void ZelCmdButton::futureFinished() {
    countFinished();
}
