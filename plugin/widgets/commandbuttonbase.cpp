#include "widgets/commandbuttonbase.h"

#include "hostlink/globals.h"

CommandButtonBase::CommandButtonBase(QWidget* parent, const char* widgetClass, const char* objectName,
                                     const QString& text)
    : QPushButton(parent), memory(this, widgetClass) {
    setObjectName(QLatin1String(objectName));
    resize(93, 25);
    setWindowTitle(tr("Form"));
    setText(text);
}

CommandButtonBase::~CommandButtonBase() = default;

void CommandButtonBase::connectToOperator(const char* propertiesSlot, const char* clickSlot) {
    if (RemoteDisplay)
        return;
    viewPropertiesAction = memory.addMenuEntry(propertiesSlot);
    connect(this, SIGNAL(clicked()), this, clickSlot);
}

void CommandButtonBase::setLabel(const QString& text) {
    setText(text);
    memory.rememberLive("label", text);
}

void CommandButtonBase::setCmdFont(const QFont& font) {
    setFont(font);
    cmdFont = font;
    memory.rememberFontLive("cmdFont", font);
}

void CommandButtonBase::setTimeout(const int& ms) {
    timeout = ms;
    memory.remember("timeout", timeout);
}

// Kept: unlike the others these two reach the form writer at any time.
void CommandButtonBase::setDetached(const bool& isDetached) {
    detached = isDetached;
    memory.remember("detached", detached);
}

void CommandButtonBase::countFinished() {
    if (numFutures-- == 1)
        setEnabled(true);
}
