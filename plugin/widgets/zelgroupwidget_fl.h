// A group box of read-outs of free layout, filled from a group file.
#ifndef OSTREL_WIDGETS_ZELGROUPWIDGET_FL_H
#define OSTREL_WIDGETS_ZELGROUPWIDGET_FL_H

#include <memory>

#include "groupbase.h"

namespace Ui {
class ZelGroup_fl;
}

// Where the form makes it checkable, its check box leads a logical variable from the moment that it is named.
class Q_DECL_EXPORT ZelGroup_fl : public GroupBase {
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
    explicit ZelGroup_fl(QWidget* parent = nullptr);
    ~ZelGroup_fl() override;

    // Gives the read-outs the text colour again; the font reaches them by inheritance.
    void setGrpFont(const QFont& font);
    // An invalid colour stands for the palette's.
    void setgBackColor(QColor color);
    // The colour of texts in the box and of the read-outs that it has now; an invalid one stands for the palette's.
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
    void colorValues();

    std::unique_ptr<Ui::ZelGroup_fl> ui;
};

#endif
