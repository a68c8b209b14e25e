// A group box of read-outs, filled from a group file.
#ifndef OSTREL_WIDGETS_ZELGROUPWIDGET_H
#define OSTREL_WIDGETS_ZELGROUPWIDGET_H

#include <memory>

#include "groupbase.h"

namespace Ui {
class ZelGroup;
}

// Where the form makes it checkable, its check box switches a logical variable: the first variable leads the check box,
// and each one named later is led by it.
class Q_DECL_EXPORT ZelGroup : public GroupBase {
    Q_OBJECT
    Q_PROPERTY(QString title READ getMyTitle WRITE setMyTitle)
    Q_PROPERTY(QFont grpFont READ getGrpFont WRITE setGrpFont)
    Q_PROPERTY(QColor gBackColor READ getgBackColor WRITE setgBackColor)
    Q_PROPERTY(QColor textColor READ getTextColor WRITE setTextColor)
    Q_PROPERTY(QString FileName READ getFileName WRITE setFileName)
    Q_PROPERTY(Qt::Orientation SimpleValueOrientation READ getOrientation WRITE setOrientation)
    Q_PROPERTY(QString toolTip READ getToolTipString WRITE setToolTipString)
    Q_PROPERTY(QString checkboxVarName READ getCheckBoxVarName WRITE setCheckBoxVarName)

public:
    explicit ZelGroup(QWidget* parent = nullptr);
    ~ZelGroup() override;

    void setGrpFont(const QFont& font);
    void setgBackColor(QColor color);
    // The colour of texts in the box and in its direct children.
    void setTextColor(QColor color);
    void setCheckBoxVarName(const QString& checkboxVarName);

Q_SIGNALS:
    // For others; the group box itself never raises it.
    void passAlongName(QString);

private Q_SLOTS:
    void viewProperties();
    void viewDisplayWindow();
    void saveConfigSettings();
    void checkToggleStatus(bool toggle);
    void varNameChange(QString newName, int row, int col);
    void windowClosed(QString filename);

private:
    void initContextMenu() override;
    QWidget* makeValue(const QString& variable, int row, int column) override;
    void followVariable();
    void variableCame() override;

    bool var_found = false;
    bool initVarName = false;
    bool isFirstName = false;  // the variable in force is the one that was named first
    std::unique_ptr<Ui::ZelGroup> ui;
};

#endif
