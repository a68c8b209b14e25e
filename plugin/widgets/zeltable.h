// A table of names, values and units: a shell for the designer that nothing fills.
#ifndef OSTREL_WIDGETS_ZELTABLE_H
#define OSTREL_WIDGETS_ZELTABLE_H

#include <QHash>
#include <QStringList>
#include <QWidget>
#include <memory>

class OstrelBase;

namespace Ui {
class zelTable;
}

class Q_DECL_EXPORT zelTable : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QStringList names READ getNames WRITE setNames)
    Q_PROPERTY(bool unitsVis READ getUnitsVis WRITE setUnitsVis)

public:
    explicit zelTable(QWidget* parent = nullptr);
    ~zelTable() override;

    QStringList getNames() const { return m_names; }
    bool getUnitsVis() const { return m_unitsVis; }

    // Both take the value and do nothing with it.
    void setNames(const QStringList& names);
    void setUnitsVis(const bool& visible);

private:
    std::unique_ptr<Ui::zelTable> ui;
    QStringList m_names;
    bool m_unitsVis = false;
    QHash<QString, OstrelBase*> var_hash;
};

#endif
