// What the two group boxes share: a box that fills itself with read-outs from a group file.
#ifndef OSTREL_WIDGETS_GROUPBASE_H
#define OSTREL_WIDGETS_GROUPBASE_H

#include <QColor>
#include <QFont>
#include <QGroupBox>
#include <QList>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <QVector>
#include <memory>

#include "core/formmemory.h"

class CheckBoxVariable;
class QDWindow;
class QGridLayout;
struct GroupVariable;

// The one editor window of the process, made when it is first needed, and whether it is open: only one group is edited
// at a time.
extern QDWindow* displayWindow;
extern bool Display_QD_Window;

// It has no meta-object of its own: the meta-object of each group box derives from QGroupBox's directly. Properties and
// slots are declared by the group boxes.
class Q_DECL_EXPORT GroupBase : public QGroupBox {
public:
    ~GroupBase() override;

    bool eventFilter(QObject* o, QEvent* e) override;

    QString getMyTitle() const { return title(); }
    void setMyTitle(const QString& title);
    QFont getGrpFont() const { return font(); }
    QColor getgBackColor() const { return gBackColor; }
    QColor getTextColor() const { return textColor; }
    // The group file in force. A file that cannot be opened changes nothing. The file is read once, until another name
    // or another orientation is set or the editor closes. A relative name that leads nowhere is looked for beside the
    // form as well.
    QString getFileName() const { return fileName; }
    void setFileName(const QString& fn);
    // Names beside their values, or above them. Another orientation builds the read-outs anew.
    Qt::Orientation getOrientation() const { return orientation; }
    void setOrientation(const Qt::Orientation& ori);
    QString getToolTipString() const { return toolTip(); }
    void setToolTipString(const QString& toolTip);
    // The logical variable that a checkable group box switches.
    QString getCheckBoxVarName() const { return boxVarName; }
    QString getName() const { return name; }
    void setName(const QString& newName);

    // For hosts. The file that was read, which is also the one that is saved; empty without.
    QString filePath() const { return readFrom; }
    // The file that was asked for last, where it could not be read; empty otherwise.
    QString missingFile() const { return missing; }
    // What the read-outs show, in the order of the file, saved or not.
    QVector<GroupVariable> variables() const;

protected:
    GroupBase(QWidget* parent, const char* widgetClass);

    // The context menu; not in a remote display.
    virtual void initContextMenu() = 0;
    // Makes the read-out of one variable of the file, with everything set but its place in the grid.
    virtual QWidget* makeValue(const QString& variable, int row, int column) = 0;

    // The steps of a construction after the form is built.
    void addMenu(const char* propertiesSlot, const char* displaySlot);
    void connectToDisplay(const char* saveSlot, const char* toggleSlot);

    void openEditor(const char* closedSlot);
    void editorClosed(const QString& editedFile, const char* closedSlot);
    void saveNames();
    void renameVariable(const QString& newName, int row, int col);

    void applyBackColor(const QColor& color);
    void applyFont(const QFont& font);

    // The variable of the check box: true when the store has it and it is a logical one. From then on a reconfiguration
    // of the store has it looked up again.
    bool findLogical(const QString& variable);
    void forgetLogical();
    // The check box leads: its state goes to the variable, now and with each toggling.
    void leadVariable();
    // What cannot be stored leaves the check box with the state of the variable.
    void writeToggle(bool on);
    // Checks the box as the variable is, and stores nothing.
    void showVariable();
    // The store has the variable now, and had it not when it was named.
    virtual void variableCame();

    FormMemory memory;
    std::unique_ptr<CheckBoxVariable> switched;
    bool namesChanged = false;  // a read-out shows another variable than the group file says
    bool valid_logi = false;    // the check box may write to its variable
    QColor textColor;
    QString boxVarName;
    Qt::Orientation orientation = Qt::Horizontal;

private:
    void followStore();
    void clearLayout();
    void fill(QGridLayout* grid, const QByteArray& text);

    QTimer reconfigurationWatch;
    bool isShowingVariable = false;
    bool initLayout = false;  // false: the next setFileName() reads the file in any case
    QString name;
    QColor gBackColor;
    QFont grpFont;
    QString fileName;
    QString readFrom;  // what the file's name came to
    QString missing;
    // What the last load was asked for, successful or not.
    Qt::Orientation last_orientation = Qt::Horizontal;
    QString last_fileName;
    // One entry for each read-out, in the order of the file.
    QStringList varNames;
    QList<int> varRow;
    QList<int> varCol;
};

#endif
