// An editor that offers a list of values.
#ifndef OSTREL_VALUEMANAGER_COMBOBOXPLUGIN_VALMANCOMBOBOXWIDGET_H
#define OSTREL_VALUEMANAGER_COMBOBOXPLUGIN_VALMANCOMBOBOXWIDGET_H

#include <QStringList>
#include <memory>

#include "valuemanager/ValueManagerWidgetBase.h"

class EditorFrame;
class ExtendedQComboBox;
namespace Ui {
class ValManComboBoxUI;
}

// For real, integer and string variables. A value that is not in the list is added to it where the box may be edited,
// and shows nothing where it may not. A real comes with six decimals, so its entries must be written with six.
class Q_DECL_EXPORT ValManComboBoxWidget : public ValueManagerWidgetBase {
    Q_OBJECT
    Q_PROPERTY(bool editable READ isEditable WRITE setEditable)
    Q_PROPERTY(QString comboBoxContents READ getComboBoxContents WRITE setComboBoxContents)
    Q_PROPERTY(QString units READ getUnits WRITE setUnits)

public:
    explicit ValManComboBoxWidget(QWidget* parent = nullptr);
    ~ValManComboBoxWidget() override;

    ExtendedQComboBox* getComboBox() const;
    // The list, also as one text with the box's delimiter between the values.
    QString getComboBoxContents() const;
    QStringList getComboBoxContentsAsList() const;
    void setComboBoxContents(QString contents);
    void setComboBoxContents(QStringList contents);
    // In which the numbers of the list are written. No value that is read changes it.
    QString getUnits() const { return units; }
    void setUnits(const QString& newUnits) override;
    bool isEditable() const;
    void setEditable(bool editable);
    QString getDeliminator() const;

public Q_SLOTS:
    void commitValue() override;
    void writeToFile(QDomDocument document) override;
    void readFromFile(QDomDocument document) override;
    // Shows the value, from wherever it comes.
    void onOstrelValueChanged(QString newValue);
    void setOstrelVariable(const QString& name) override;

protected:
    using ValueManagerWidgetBase::commitValue;

private:
    const char* stagedAttribute() const;

    QString units;
    std::unique_ptr<EditorFrame> m_frame;
    std::unique_ptr<Ui::ValManComboBoxUI> ui;
};

#endif
