#include "mainwindow.h"

#include <QCloseEvent>
#include <QDomDocument>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>
#include <QVBoxLayout>
#include <cstdio>

#include "banner.h"
#include "cellwatch.h"
#include "core/ostrelbase.h"
#include "displaycontrol.h"
#include "failure.h"
#include "formarea.h"
#include "formbindings.h"
#include "formloader.h"
#include "formwatch.h"
#include "hostlink/globals.h"
#include "offerbar.h"
#include "options.h"
#include "questions.h"
#include "stagedlist.h"
#include "stagedvalues.h"
#include "unsavedchanges.h"

namespace {

void setText(QLabel* field, const QString& text) {
    if (field->text() != text)
        field->setText(text);
}

QString widgetsText(int number, const char* what) {
    return QStringLiteral("%1 %2").arg(number).arg(QLatin1String(what));
}

}  // namespace

MainWindow::MainWindow(const QString& path, CellWatch* watch, Manners manners)
    : m_path(QFileInfo(path).absoluteFilePath()), m_watch(watch), m_manners(manners) {
    // Widgets connect to the control while they are built.
    m_control = new DisplayControl(this);
    runQtUIWindow = m_control;
    m_unsaved = new UnsavedChanges(m_path, m_control, this);
    m_formWatch = new FormWatch(this);
    m_bindings = new FormBindings(nullptr, watch->state(), this);
    connect(m_bindings, &FormBindings::storeUsable, this, &MainWindow::storeIsUsable);
    m_staged = new StagedValues(this);
    connect(m_staged, &StagedValues::changed, this, &MainWindow::showStaged);
    connect(m_staged, &StagedValues::refused, this, &MainWindow::tellOfRefusal);
    layOut();
    const QByteArray text = FormLoader::readForm(path);
    build(text, manners == Manners::Asks ? offerRecovery(text) : KeptChanges());
    if (manners == Manners::Asks) {
        tellMerged(nullptr, m_unsaved->unplaced(), {});
        addMenu();
        addValuesMenu();
        connect(m_formWatch, &FormWatch::formChanged, this, &MainWindow::offerReload);
    }
    connect(m_unsaved, &UnsavedChanges::changed, this, &MainWindow::showChanges);
    connect(watch, &CellWatch::looked, this, &MainWindow::tell);
    showChanges();
    tell(watch->state());
}

MainWindow::~MainWindow() {
    runQtUIWindow = nullptr;
}

void MainWindow::layOut() {
    auto* contents = new QWidget;
    m_column = new QVBoxLayout(contents);
    m_column->setContentsMargins(0, 0, 0, 0);
    m_column->setSpacing(0);
    m_banner = new Banner;
    m_offer = new OfferBar;
    m_column->addWidget(m_banner);
    m_column->addWidget(m_offer);
    setCentralWidget(contents);
    m_storeField = addField("storeField");
    m_heartbeatField = addField("heartbeatField");
    m_bindingField = addField("bindingField");
    m_changesField = addField("changesField");
    m_stagedField = addField("stagedField");
    connect(m_offer, &OfferBar::accepted, this, &MainWindow::reload);
    connect(m_unsaved, &UnsavedChanges::recoveryFailed, this, [this](bool failed) {
        m_changesField->setStyleSheet(failed ? QStringLiteral("color: #b20018;") : QString());
        m_changesField->setStatusTip(failed ? tr("They would be lost with this display: nothing can be written beside "
                                                 "the form.")
                                            : QString());
    });
}

void MainWindow::addMenu() {
    QMenu* menu = menuBar()->addMenu(tr("&Form"));
    const auto add = [&](const QString& text, const QKeySequence& keys, auto slot) {
        menu->addAction(text, this, slot, keys);
    };
    add(tr("&Save Form Changes"), QKeySequence::Save, &MainWindow::save);
    add(tr("Save Form &As…"), QKeySequence(tr("Ctrl+Shift+S")), &MainWindow::saveAs);
    add(tr("&Revert to Saved"), {}, &MainWindow::revert);
    menu->addSeparator();
    add(tr("&Close"), QKeySequence(tr("Ctrl+Q")), &MainWindow::close);
}

void MainWindow::addValuesMenu() {
    QMenu* menu = menuBar()->addMenu(tr("&Values"));
    menu->addAction(tr("&Read Values"), this, &MainWindow::readValues, QKeySequence::Refresh);
    menu->addAction(tr("S&taged Values…"), this, &MainWindow::showStagedValues);
    menu->addSeparator();
    menu->addAction(tr("&Load Values…"), this, &MainWindow::loadValues);
    menu->addAction(tr("&Save Values…"), this, &MainWindow::saveValues);
    connect(menu, &QMenu::aboutToShow, this, [this, menu] {
        for (QAction* action : menu->actions())
            action->setEnabled(m_staged->hasEditors());
    });
}

// The changes to begin with.
KeptChanges MainWindow::offerRecovery(const QByteArray& text) {
    const std::optional<FoundRecovery> found = findRecovery(m_path);
    if (!found)
        return {};
    const KeptChanges kept = KeptChanges::unpacked(found->changes);
    FormChanges changes;
    bool sameForm = true;
    if (!kept.form.isEmpty())
        changes.takeOver(kept.form, text, &sameForm);
    if (!changes.isDirty() && kept.groups.isEmpty())
        return {};
    RecoveryOffer offer{QFileInfo(m_path).fileName(), found->written, changes.summary(), {}, {}};
    for (const GroupChange& change : kept.groups)
        offer.changes.append(lineOf(change));
    changes.appliedTo(text, &offer.unplaced);
    if (!sameForm)
        offer.formChanged = QFileInfo(m_path).lastModified();
    const RecoveryAnswer answer = askRecovery(offer);
    if (answer == RecoveryAnswer::Later)
        return {};
    // Restored changes have this display's own file before the one that they come from goes.
    if (answer == RecoveryAnswer::Discard || RecoveryFile(m_path).write(found->changes))
        QFile::remove(found->path);
    return answer == RecoveryAnswer::Restore ? kept : KeptChanges();
}

// Throws Failure, with the former form still on show.
void MainWindow::build(const QByteArray& text, const KeptChanges& kept) {
    FormChanges added;
    const QByteArray shown = kept.form.isEmpty() || !added.takeOver(kept.form) ? text : added.appliedTo(text);
    QWidget* widget = nullptr;
    {
        const FormChanges::Hold hold(formChanges());
        LoadedForm form = FormLoader().loadForm(m_path, shown);
        widget = form.widget.get();
        m_bindings->setForm(widget, m_watch->state());
        m_bindings->applyUnits(form.units);
        m_unsaved->formLeaves();
        place(std::move(form));
    }
    m_unsaved->formLoaded(widget, text, kept);
    m_formWatch->follow(m_path, text);
    for (OstrelBase* each : widget->findChildren<OstrelBase*>())
        connect(each, &OstrelBase::saveUIfile, this, &MainWindow::save);
    m_staged->setForm(widget);
    if (InitializationDone)
        m_staged->read();
}

void MainWindow::place(LoadedForm form) {
    const QString title = form.widget->windowTitle();
    setWindowTitle((title.isEmpty() ? QFileInfo(m_path).fileName() : title) + QStringLiteral("[*]"));
    delete m_area;
    m_area = new FormArea(form.widget.release());
    m_column->addWidget(m_area, 1);
}

bool MainWindow::rebuild(const KeptChanges& kept) {
    try {
        build(FormLoader::readForm(m_path), kept);
        m_offer->hide();
        tell(m_watch->state());
        return true;
    } catch (const Failure& failure) {
        tellNotBuilt(this, QString::fromUtf8(failure.what()));
        return false;
    }
}

QLabel* MainWindow::addField(const char* name) {
    auto* field = new QLabel;
    field->setObjectName(QLatin1String(name));
    field->setMargin(fontMetrics().height() / 4);
    // In a narrow window fields get less than their text; squeezed below their minimum they would overlap.
    field->setMinimumWidth(1);
    statusBar()->addWidget(field);
    return field;
}

void MainWindow::takePlace(const Options& options) {
    // It has laid out empty fields until now. Of its width the window takes no notice, nor it of its frames and grip.
    statusBar()->layout()->activate();
    layout()->invalidate();
    const int statusWidth = statusBar()->sizeHint().width() + 3 * fontMetrics().height();
    QSize size = sizeHint().expandedTo({statusWidth, 0});
    if (options.geometry)
        size = QSize(options.geometry->width, options.geometry->height);
    else if (options.screenshot.empty())  // a picture may be larger than the screen
        size = size.boundedTo(screen()->availableSize());
    resize(size);
    if (options.geometry && options.geometry->x)
        move(*options.geometry->x, *options.geometry->y);
}

bool MainWindow::save() {
    return settle(m_unsaved->save());
}

bool MainWindow::saveAs() {
    const QString path = QFileDialog::getSaveFileName(this, tr("Save Form As"), m_path, tr("Forms (*.ui)"));
    return !path.isEmpty() && settle(m_unsaved->saveAs(path));
}

// What is to be done after saving: true when all is saved.
bool MainWindow::settle(const Saving& saving) {
    if (FormChanges* changes = formChanges(); changes && saving.fault.isEmpty()) {
        m_path = changes->path();
        m_formWatch->follow(m_path, changes->text());
        m_offer->hide();
    }
    if (m_manners == Manners::Silent)
        return tellSilently(saving);
    if (!saving.groupFaults.isEmpty())
        tellGroupsNotSaved(this, saving.groupFaults);
    if (!saving.fault.isEmpty())
        return tellSavingFailed(this, saving.fault) && saveAs();
    tellMerged(this, saving.unplaced, saving.overwritten, saving.refused, saving.remark);
    return saving.isComplete();
}

bool MainWindow::tellSilently(const Saving& saving) {
    QStringList faults = saving.groupFaults;
    if (!saving.fault.isEmpty())
        faults.append(saving.fault);
    for (const QString& fault : qAsConst(faults))
        std::fprintf(stderr, "ostrel-display: %s\n", qPrintable(fault));
    return saving.isComplete();
}

void MainWindow::revert() {
    m_unsaved->look();
    if (m_unsaved->any() && !askRevert(this, formName(), m_unsaved->summary()))
        return;
    rebuild({});
}

void MainWindow::reload() {
    m_unsaved->look();
    const bool isStaged = !m_staged->differing().isEmpty();
    const QDomDocument staged = m_staged->document();
    if (!rebuild(m_unsaved->kept()))
        return;
    if (isStaged)
        stageAll(staged);
    tellMerged(this, m_unsaved->unplaced(), {});
}

void MainWindow::storeIsUsable() {
    m_staged->read();
    if (m_toStage)
        stageAll(*m_toStage);
    m_toStage.reset();
}

void MainWindow::stage(const QString& path) {
    m_valuesPath = path;
    const QDomDocument document = StagedValues::readFile(path);
    if (InitializationDone)
        stageAll(document);
    else
        m_toStage = std::make_unique<QDomDocument>(document);
}

void MainWindow::stageAll(const QDomDocument& document) {
    const QStringList left = StagedValues::restoreAll(document);
    showStaged();
    if (left.isEmpty())
        return;
    if (m_manners == Manners::Asks)
        tellValuesLeft(this, left);
    else
        std::fprintf(stderr, "ostrel-display: no editor for %s\n", qPrintable(left.join(QStringLiteral(", "))));
}

void MainWindow::readValues() {
    m_staged->read();
    showStaged();
}

void MainWindow::loadValues() {
    const QString path =
        QFileDialog::getOpenFileName(this, tr("Load Values"), m_valuesPath, tr("Staged values (*.xml);;All files (*)"));
    if (path.isEmpty())
        return;
    try {
        stage(path);
    } catch (const Failure& failure) {
        tellValuesNotLoaded(this, QString::fromUtf8(failure.what()));
    }
}

void MainWindow::saveValues() {
    const QString path =
        QFileDialog::getSaveFileName(this, tr("Save Values"), m_valuesPath, tr("Staged values (*.xml);;All files (*)"));
    if (path.isEmpty())
        return;
    try {
        m_staged->writeFile(path);
        m_valuesPath = path;
    } catch (const Failure& failure) {
        tellValuesNotSaved(this, QString::fromUtf8(failure.what()));
    }
}

void MainWindow::showStagedValues() {
    if (!m_stagedList)
        m_stagedList = new StagedList(this);
    m_stagedList->setValues(m_staged->differing());
    m_stagedList->show();
    m_stagedList->raise();
}

void MainWindow::showStaged() {
    const QVector<StagedValue> values = m_staged->differing();
    setText(m_stagedField, tr("%1 staged").arg(values.size()));
    QStringList lines;
    for (const StagedValue& value : values)
        lines.append(QStringLiteral("%1: %2 → %3").arg(value.variable, value.live, value.staged));
    m_stagedField->setToolTip(lines.join(QLatin1Char('\n')));
    m_stagedField->setMinimumWidth(m_stagedField->sizeHint().width());
    m_stagedField->setVisible(!values.isEmpty());
    if (m_stagedList && m_stagedList->isVisible())
        m_stagedList->setValues(values);
}

void MainWindow::tellOfRefusal(const QStringList& lines) {
    if (m_manners == Manners::Asks)
        return tellRefused(this, lines);
    for (const QString& line : lines)
        std::fprintf(stderr, "ostrel-display: refused: %s\n", qPrintable(line));
}

void MainWindow::closeEvent(QCloseEvent* event) {
    m_unsaved->look();
    // Where nobody answers, the changes wait in the recovery file.
    if (!m_unsaved->any() || m_manners == Manners::Silent)
        return event->accept();
    const ClosingAnswer answer = askClosing(this, formName(), m_unsaved->summary());
    const bool close = answer == ClosingAnswer::Discard || (answer == ClosingAnswer::Save && save());
    if (close && answer == ClosingAnswer::Discard)
        m_unsaved->discard();
    event->setAccepted(close);
}

QString MainWindow::formName() const {
    return QFileInfo(m_path).fileName();
}

void MainWindow::offerReload() {
    m_offer->offer(m_unsaved->any()
                       ? tr("The form was changed on the disk. Your unsaved changes are kept when it is reloaded.")
                       : tr("The form was changed on the disk."),
                   tr("Reload"));
}

void MainWindow::tell(const CellState& state) {
    m_unsaved->look();
    m_bindings->follow(state);
    m_banner->tell(noDataHeadline(state), noDataReason(state));
    m_area->setFrozen(!state.alive());
    setText(m_storeField, storeText(state));
    setText(m_heartbeatField, heartbeatText(state));
    showBindings();
    m_staged->fillNew();
    showStaged();
}

void MainWindow::showChanges() {
    const int count = m_unsaved->count();
    setWindowModified(count > 0);
    setText(m_changesField, count == 0   ? QString()
                            : count == 1 ? tr("1 unsaved change")
                                         : tr("%1 unsaved changes").arg(count));
    m_changesField->setToolTip(m_unsaved->any() ? m_unsaved->summary().join(QLatin1Char('\n')) : QString());
    // The other fields give way.
    m_changesField->setMinimumWidth(m_changesField->sizeHint().width());
    m_changesField->setVisible(count > 0);
}

void MainWindow::showBindings() {
    const BindingCount count = m_bindings->count();
    const int missing = count.missing.size() + count.missingFiles.size();
    setText(m_bindingField, widgetsText(count.bound, "bound") + QStringLiteral(", ") + widgetsText(missing, "missing"));
    QStringList lines;
    if (!count.missing.isEmpty())
        lines.append(tr("Not in the store: %1").arg(count.missing.join(QStringLiteral(", "))));
    if (!count.missingFiles.isEmpty())
        lines.append(tr("Group files that cannot be read: %1").arg(count.missingFiles.join(QStringLiteral(", "))));
    m_bindingField->setToolTip(lines.join(QLatin1Char('\n')));
}
