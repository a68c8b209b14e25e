#include "widgets/opntailwidget.h"

#include <QAction>
#include <QFile>
#include <QFileInfo>
#include <QIcon>

#include "hostlink/globals.h"
#include "ui_opntailwidget.h"

namespace {

// A pipe would keep whoever opens it waiting for its writer.
bool canBeRead(const QString& path) {
    QFile file(path);
    return QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly | QIODevice::Text);
}

}  // namespace

ZelTail::ZelTail(QWidget* parent) : QWidget(parent), ui(std::make_unique<Ui::ZelTail>()), memory(this, "ZelTail") {
    if (!RemoteDisplay)
        initContextMenu();
    ui->setupUi(this);
    QMetaObject::connectSlotsByName(this);
    ui->btnPause->setIcon(QIcon(QStringLiteral(":/pause.png")));
}

ZelTail::~ZelTail() = default;

void ZelTail::initContextMenu() {
    viewPropertiesAction = memory.addMenuEntry(SLOT(viewProperties()));
    clearWindowAction = new QAction(tr("Clear"), this);
    connect(clearWindowAction, SIGNAL(triggered()), this, SLOT(clearContents()));
    addAction(clearWindowAction);
}

void ZelTail::setFileName(const QString& fn) {
    m_fileName = fn;
    if (fn.isEmpty() || !canBeRead(fn))
        return;
    ui->lblFilename->setText(fn);
    ui->tailWidget->clearContents();
    ui->tailWidget->setFileName(fn);
    memory.remember("TailFileName", fn);
}

void ZelTail::setgBackColor(const QColor& color) {
    gBackColor = color;
    ui->tailWidget->setgBackColor(color);
    memory.rememberLive("gBackColor", color);
}

void ZelTail::setTextColor(const QColor& color) {
    textColor = color;
    ui->tailWidget->setTextColor(color);
    memory.rememberLive("TextColor", color);
}

// Kept: forms have this font as a plain property.
void ZelTail::setTextFont(const QFont& font) {
    textFont = font;
    ui->tailWidget->setTextFont(font);
    memory.rememberLive("TextFont", font);
}

void ZelTail::setFileLabelShown(bool isShown) {
    m_fileLabelShown = isShown;
    ui->lblFilename->setVisible(isShown);
    memory.remember("showFileLabel", isShown);
}

void ZelTail::setWrapText(bool isWrapped) {
    m_wrapText = isWrapped;
    ui->tailWidget->setWrapText(isWrapped);
    memory.remember("wrapText", isWrapped);
}

void ZelTail::viewProperties() {
    memory.editProperties();
}

void ZelTail::clearContents() {
    ui->tailWidget->clearContents();
}

// Whether it is paused stands in the button's text alone.
void ZelTail::on_btnPause_clicked() {
    const bool pauses = ui->btnPause->text() == tr("Pause");
    ui->btnPause->setIcon(QIcon(pauses ? QStringLiteral(":/play.png") : QStringLiteral(":/pause.png")));
    ui->btnPause->setText(pauses ? tr("Play") : tr("Pause"));
    ui->tailWidget->pause(pauses);
}
