// A combo box in which a variable of the store is chosen.
#ifndef OSTREL_WIDGETS_ZELVARIABLEWIDGET_H
#define OSTREL_WIDGETS_ZELVARIABLEWIDGET_H

#include <ostrel/records.h>

#include <QHash>
#include <QStringList>
#include <QWidget>
#include <memory>

#include "selection/arealinks.h"
#include "variables/kinds.h"

class NameOrder;
class QComboBox;
struct CatalogueSection;

// It binds to no variable itself. Its list holds all variables of some kinds, each with its units in brackets, sorted
// without regard to case, behind an empty first row. Making one without a running store shows a message and ends the
// process with status -1.
class Q_DECL_EXPORT ZelVariable : public QWidget {
    Q_OBJECT

public:
    // The box is empty until setVariableTypes(), whatever `load` says. With `hideLabels` the entries are names alone.
    ZelVariable(QT_OSTREL_VAR_TYPE vars, QWidget* parent, bool load, bool hideLabels);
    // With the entries of another one, as they are shown there; without a parent.
    explicit ZelVariable(ZelVariable* zelvar);
    ~ZelVariable() override;

    QT_OSTREL_VAR_TYPE variableTypes() const { return m_varTypes; }
    // What stands in the box, brackets included: a variable, or whatever was typed.
    QString variable() const;
    QComboBox* comboBox() const { return m_comboBox; }
    // The entries in the order of the store, as they are shown.
    QStringList variables() const { return m_variables; }

    // The names of all variables of these kinds. Arrays are among those of their kind. On the GUI thread.
    static QStringList GetVariablesForType(QT_OSTREL_VAR_TYPE vars);
    // The same with the units of each: "String" and "Logical" for those, "NONE" where an entry has no units. A variable
    // with members stands there once. The caller owns the table.
    static QHash<QString, QString>* GetVariablesAndUnitsForType(QT_OSTREL_VAR_TYPE vars);

    // Its place in a table of the caller's.
    void setRowColNum(int rowNum, int colNum);
    void setSelectionToolTip(QString text);

public Q_SLOTS:
    // Selects that entry; a text that is none changes nothing.
    void setSelectedText(QString text);
    // Loads the list the first time. Later it is remembered only.
    void setVariableTypes(QT_OSTREL_VAR_TYPE vars);

Q_SIGNALS:
    void indexChanged(int index);

private Q_SLOTS:
    void slotChangeIndex(int index);

private:
    struct Units;

    void setUp();
    void loadVariables();
    bool readCatalogue();
    bool isTaken(const CatalogueSection& section) const;
    template <class Record>
    static Units unitsOf(const Record& record);
    template <class Record>
    void takeSection(const Record* records, int count);
    template <class Record>
    void takeAlias(const Record& record, const QString& label);
    template <class Record>
    void takeRecord(const Record& record, const QString& label);
    void take(const QString& name, const Units& units);
    void fillBox();
    int getRowNum() const { return rowNumOfWidget; }
    int getColNum() const { return colNumOfWidget; }

    QComboBox* m_comboBox;
    QT_OSTREL_VAR_TYPE m_varTypes;
    QStringList m_variables;
    std::unique_ptr<QHash<QString, QString>> hashedVariables;  // plain name to units
    AreaLinks m_areas;
    bool m_loadedVariables = false;
    bool m_hideLabels = false;
    int rowNumOfWidget = 0;
    int colNumOfWidget = 0;
    NameOrder* m_proxy = nullptr;
};

#endif
