#include "mainwindow.h"

#include <QFileInfo>
#include <QLabel>
#include <QScreen>
#include <QStatusBar>
#include <QVBoxLayout>

#include "banner.h"
#include "cellwatch.h"
#include "displaycontrol.h"
#include "fabric/signalslotsingleton.h"
#include "formarea.h"
#include "formbindings.h"
#include "formloader.h"
#include "options.h"

namespace {

void setText(QLabel* field, const QString& text) {
    if (field->text() != text)
        field->setText(text);
}

QString widgetsText(int number, const char* what) {
    return QStringLiteral("%1 %2").arg(number).arg(QLatin1String(what));
}

}  // namespace

MainWindow::MainWindow(const QString& path, CellWatch* watch) {
    // Widgets connect to the control while they are built.
    runQtUIWindow = new DisplayControl(this);
    LoadedForm form = FormLoader().loadForm(path);
    const QString title = form.widget->windowTitle();
    setWindowTitle(title.isEmpty() ? QFileInfo(path).fileName() : title);
    m_bindings = new FormBindings(form.widget.get(), watch->state(), this);
    m_bindings->applyUnits(form.units);
    connect(m_bindings, &FormBindings::storeUsable, &SignalSlotSingleton::getInstance(),
            &SignalSlotSingleton::readFromOstrel);
    addForm(std::move(form));
    m_storeField = addField("storeField");
    m_heartbeatField = addField("heartbeatField");
    m_bindingField = addField("bindingField");
    connect(watch, &CellWatch::looked, this, &MainWindow::tell);
    tell(watch->state());
}

MainWindow::~MainWindow() {
    runQtUIWindow = nullptr;
}

void MainWindow::addForm(LoadedForm form) {
    auto* contents = new QWidget;
    auto* column = new QVBoxLayout(contents);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    m_banner = new Banner;
    m_area = new FormArea(form.widget.release());
    column->addWidget(m_banner);
    column->addWidget(m_area, 1);
    setCentralWidget(contents);
}

QLabel* MainWindow::addField(const char* name) {
    auto* field = new QLabel;
    field->setObjectName(QLatin1String(name));
    field->setMargin(fontMetrics().height() / 4);
    statusBar()->addWidget(field);
    return field;
}

void MainWindow::takePlace(const Options& options) {
    QSize size = sizeHint();
    if (options.geometry)
        size = QSize(options.geometry->width, options.geometry->height);
    else if (options.screenshot.empty())  // a picture may be larger than the screen
        size = size.boundedTo(screen()->availableSize());
    resize(size);
    if (options.geometry && options.geometry->x)
        move(*options.geometry->x, *options.geometry->y);
}

void MainWindow::tell(const CellState& state) {
    m_bindings->follow(state);
    m_banner->tell(noDataHeadline(state), noDataReason(state));
    m_area->setFrozen(!state.alive());
    setText(m_storeField, storeText(state));
    setText(m_heartbeatField, heartbeatText(state));
    showBindings();
}

void MainWindow::showBindings() {
    const BindingCount count = m_bindings->count();
    const int missing = count.missing.size();
    setText(m_bindingField, widgetsText(count.bound, "bound") + QStringLiteral(", ") + widgetsText(missing, "missing"));
    m_bindingField->setToolTip(missing ? tr("Not in the store: %1").arg(count.missing.join(QStringLiteral(", ")))
                                       : QString());
}
