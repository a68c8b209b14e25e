// The window of the display: the form, over it the banner while there are no fresh values, below it the status.
#ifndef OSTREL_HOST_MAINWINDOW_H
#define OSTREL_HOST_MAINWINDOW_H

#include <QMainWindow>
#include <memory>

#include "cellstate.h"

class Banner;
class CellWatch;
class DisplayControl;
class FormArea;
class FormBindings;
class FormWatch;
class OfferBar;
class QDomDocument;
class QLabel;
class QVBoxLayout;
class StagedList;
class StagedValues;
class UnsavedChanges;
struct KeptChanges;
struct LoadedForm;
struct Options;
struct Saving;

// Whether there is somebody to answer questions. A display without has no menu either.
enum class Manners { Asks, Silent };

class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    // Loads the form; throws Failure where that cannot be done. `watch` outlives the window. Where there is somebody to
    // ask, and changes of a display that died were left, asks what to do with them first.
    MainWindow(const QString& path, CellWatch* watch, Manners manners = Manners::Asks);
    ~MainWindow() override;

    // The place that was asked for, or else the form's own size as far as the screen has room for it.
    void takePlace(const Options& options);

    // Stages the values of the file as soon as the store is there. Throws Failure for what is no such file.
    void stage(const QString& path);

public Q_SLOTS:
    // True when nothing is unsaved afterwards. Tells where that cannot be.
    bool save();
    bool saveAs();
    // Goes back to what the form file says.
    void revert();
    // Builds the form anew from its file and puts the unsaved changes into it.
    void reload();
    // Fills the form's editors from the store.
    void readValues();
    void loadValues();
    void saveValues();
    // The staged values in a list beside the window.
    void showStagedValues();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void layOut();
    void addMenu();
    KeptChanges offerRecovery(const QByteArray& text);
    void build(const QByteArray& text, const KeptChanges& kept);
    void place(LoadedForm form);
    bool rebuild(const KeptChanges& kept);
    bool settle(const Saving& saving);
    bool tellSilently(const Saving& saving);
    void tell(const CellState& state);
    void showBindings();
    void showChanges();
    void offerReload();
    void addValuesMenu();
    void storeIsUsable();
    void stageAll(const QDomDocument& document);
    void showStaged();
    void tellOfRefusal(const QStringList& lines);
    QString formName() const;
    QLabel* addField(const char* name);

    QString m_path;
    CellWatch* m_watch;
    Manners m_manners;
    DisplayControl* m_control = nullptr;
    FormBindings* m_bindings = nullptr;
    UnsavedChanges* m_unsaved = nullptr;
    FormWatch* m_formWatch = nullptr;
    StagedValues* m_staged = nullptr;
    StagedList* m_stagedList = nullptr;
    std::unique_ptr<QDomDocument> m_toStage;  // waits for the store
    QString m_valuesPath;
    Banner* m_banner = nullptr;
    OfferBar* m_offer = nullptr;
    FormArea* m_area = nullptr;
    QVBoxLayout* m_column = nullptr;
    QLabel* m_storeField = nullptr;
    QLabel* m_heartbeatField = nullptr;
    QLabel* m_bindingField = nullptr;
    QLabel* m_changesField = nullptr;
    QLabel* m_stagedField = nullptr;
};

#endif
