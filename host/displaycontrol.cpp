#include "displaycontrol.h"

#include <QShortcut>
#include <QWidget>

DisplayControl::DisplayControl(QWidget* window) : QObject(window), m_window(window) {
    auto* commandLine = new QShortcut(QKeySequence(QStringLiteral("Ctrl+L")), window);
    connect(commandLine, &QShortcut::activated, this, &DisplayControl::ctrlLPressed);
}

void DisplayControl::closeEvent() {
    m_window->close();
}
