// A dialog that edits a list of texts.
#ifndef OSTREL_VALUEMANAGER_STRINGLISTEDITOR_STRINGLISTEDITOR_H
#define OSTREL_VALUEMANAGER_STRINGLISTEDITOR_STRINGLISTEDITOR_H

#include <QDialog>
#include <QIcon>
#include <QStringList>
#include <QVariant>
#include <memory>

class QListWidget;
class QListWidgetItem;
namespace Ui {
class StringListEditor;
}

// Kept: only the texts that were added with "New" can be changed in their place.
class Q_DECL_EXPORT StringListEditor : public QDialog {
    Q_OBJECT

public:
    // `contents` is read and left as it is; contents() tells what has become of it.
    StringListEditor(QStringList* contents, QWidget* parent);
    ~StringListEditor() override;

    QStringList contents() const;
    QListWidget* listWidget() const;
    // The text of a new item.
    void setNewItemText(const QString& text) { m_newItemText = text; }
    QString newItemText() const { return m_newItemText; }
    // Selects a row without telling.
    void setCurrentIndex(int idx);

Q_SIGNALS:
    void indexChanged(int idx);
    void itemChanged(int idx, int role, QVariant v);
    void itemInserted(int idx);
    void itemDeleted(int idx);
    void itemMovedUp(int idx);
    void itemMovedDown(int idx);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private Q_SLOTS:
    void on_newListItemButton_clicked();
    void on_deleteListItemButton_clicked();
    void on_moveListItemUpButton_clicked();
    void on_moveListItemDownButton_clicked();
    void on_listWidget_currentRowChanged();
    void on_listWidget_itemChanged(QListWidgetItem* item);

private:
    QIcon createIconSet(const QString& name) const;
    void updateEditor();
    void moveItem(int from, int to);

    std::unique_ptr<Ui::StringListEditor> ui;
    bool m_updating = false;
    QString m_newItemText;
};

#endif
