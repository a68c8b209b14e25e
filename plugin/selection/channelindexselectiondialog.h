// Chooses an input or output channel: its group and its position there.
#ifndef OSTREL_SELECTION_CHANNELINDEXSELECTIONDIALOG_H
#define OSTREL_SELECTION_CHANNELINDEXSELECTIONDIALOG_H

#include <QDialog>
#include <QMap>
#include <QStringList>
#include <memory>

#include "variables/kinds.h"

namespace Ui {
class ChannelIndexSelectionDialog;
}

// Reads the catalogue on every showing. Without a store that ends the process (see VariableMapList).
class Q_DECL_EXPORT ChannelIndexSelectionDialog : public QDialog {
    Q_OBJECT

public:
    ChannelIndexSelectionDialog(QWidget* parent, QT_OSTREL_VAR_TYPE type, QString inName);
    ~ChannelIndexSelectionDialog() override;

    QString getSelectedVariableTypeText() const;
    QString getSelectedChannelIndexNumber() const;

protected:
    void showEvent(QShowEvent* evt) override;

private Q_SLOTS:
    void groupIndexChanged(QString item);

private:
    std::unique_ptr<Ui::ChannelIndexSelectionDialog> ui;
    QT_OSTREL_VAR_TYPE varType;
    QString origVarName_;                                   // the entry to show first
    std::unique_ptr<QMap<QString, QStringList>> variables;  // the catalogue of this showing
};

#endif
