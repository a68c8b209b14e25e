// An editor of the path of a file, which is chosen in a browser.
#ifndef OSTREL_VALUEMANAGER_FILEPLUGIN_VALMANFILEWIDGET_H
#define OSTREL_VALUEMANAGER_FILEPLUGIN_VALMANFILEWIDGET_H

#include <memory>

#include "valuemanager/ValueManagerWidgetBase.h"

class EditorFrame;
namespace Ui {
class ValManFileUI;
}

// For string variables. Leaving the browser without a file empties the editor, and an empty editor leaves the variable
// as it is.
class Q_DECL_EXPORT ValManFileWidget : public ValueManagerWidgetBase {
    Q_OBJECT
    Q_PROPERTY(QString StartDirectory READ getStartDir WRITE setStartDir)
    Q_PROPERTY(QString FileFilter READ getFilter WRITE setFilter)

public:
    explicit ValManFileWidget(QWidget* parent = nullptr);
    ~ValManFileWidget() override;

    void setOstrelVariable(const QString& name) override;

    // Where the browser starts; empty for the folder in which the process runs.
    QString getStartDir() const { return _startDir; }
    void setStartDir(const QString& folder) { _startDir = folder; }
    // What it lists, as in "Tables (*.csv);;All files (*)"; empty for all.
    QString getFilter() const { return _filter; }
    void setFilter(const QString& filter) { _filter = filter; }

protected:
    using ValueManagerWidgetBase::commitValue;
    void commitValue() override;
    void readFromFile(QDomDocument document) override;
    void writeToFile(QDomDocument document) override;

private Q_SLOTS:
    void browseForFile();

private:
    QString _startDir;
    QString _filter;
    std::unique_ptr<EditorFrame> m_frame;
    std::unique_ptr<Ui::ValManFileUI> ui;
};

#endif
