// The window of the display: the form, over it the banner while there are no fresh values, below it the status.
#ifndef OSTREL_HOST_MAINWINDOW_H
#define OSTREL_HOST_MAINWINDOW_H

#include <QMainWindow>

#include "cellstate.h"

class Banner;
class CellWatch;
class FormArea;
class FormBindings;
class QLabel;
struct LoadedForm;
struct Options;

class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    // Loads the form; throws Failure where that cannot be done. `watch` outlives the window.
    MainWindow(const QString& path, CellWatch* watch);
    ~MainWindow() override;

    // The place that was asked for, or else the form's own size as far as the screen has room for it.
    void takePlace(const Options& options);

private:
    void addForm(LoadedForm form);
    void tell(const CellState& state);
    void showBindings();
    QLabel* addField(const char* name);

    FormBindings* m_bindings = nullptr;
    Banner* m_banner = nullptr;
    FormArea* m_area = nullptr;
    QLabel* m_storeField = nullptr;
    QLabel* m_heartbeatField = nullptr;
    QLabel* m_bindingField = nullptr;
};

#endif
