#include "variables/valueentry.h"

#include <ostrel/store.h>
#include <ostrel/units.h>

#include <QCoreApplication>
#include <QDebug>
#include <QInputDialog>
#include <QMessageBox>
#include <QRegularExpression>

#include "variables/recordtext.h"

namespace {

constexpr int lowest = -2147483647;
constexpr int highest = 2147483647;
constexpr int standardDecimals = 6;

QString title(const QString& name) {
    return QCoreApplication::translate("ValueEntry", "Enter new value for %1").arg(name);
}

QString label(const QString& name, const QString& units) {
    return QCoreApplication::translate("ValueEntry", "Enter a new value for %1 in the form of %2 units.")
        .arg(name, units.toUpper());
}

QString unitsShown(const char* displayUnits, const QString& recordUnits) {
    return *displayUnits ? QString::fromLatin1(displayUnits) : recordUnits;
}

}  // namespace

int formatDecimals(const QString& format) {
    const QString decimals = format.section(QLatin1Char('.'), 1, 1);
    static const QRegularExpression letter(QStringLiteral("[A-Za-z]"));
    bool ok = false;
    const int number = decimals.split(letter).first().toInt(&ok);
    return ok ? number : standardDecimals;
}

void enterReal(QWidget* parent, const QString& name, char* displayUnits, REAL_VARIABLE*& record, int decimals,
               Unconverted unconverted) {
    bool ok = false;
    const QString asked = name;
    const QString units = unitsShown(displayUnits, recordText(record->units));
    double value = QInputDialog::getDouble(parent, title(asked), label(asked, units), record->value, lowest, highest,
                                           decimals, &ok);
    if (!ok || !record || name != asked)
        return;
    if (*displayUnits &&
        units_dbl_keyword_convrt(value, displayUnits, &value, UnitKeyword(record->units).text()) != 0) {
        if (unconverted == Unconverted::Logged)
            qDebug("Error converting value");
        return;
    }
    set_real_variable(record, value);
}

void enterInteger(QWidget* parent, const QString& name, char* displayUnits, INTEGER_VARIABLE*& record,
                  REAL_VARIABLE*& lastReal) {
    bool ok = false;
    const QString asked = name;
    const QString units = unitsShown(displayUnits, recordText(record->units));
    int value = QInputDialog::getInt(parent, title(asked), label(asked, units), record->value, lowest, highest, 1, &ok);
    if (!ok || !record || name != asked)
        return;
    UnitKeyword target(lastReal ? lastReal->units : record->units);
    if (*displayUnits && units_lng_keyword_convrt(value, displayUnits, &value, target.text()) != 0) {
        qDebug("Error converting value");
        return;
    }
    set_integer(record, value);
}

void enterString(QWidget* parent, const QString& name, STRING_VARIABLE*& record) {
    bool ok = false;
    const QString asked = name;
    const QString text =
        QInputDialog::getText(parent, QCoreApplication::translate("ValueEntry", "Enter new string for %1").arg(asked),
                              QCoreApplication::translate("ValueEntry", "Enter a new string for %1.").arg(asked),
                              QLineEdit::Normal, recordText(record->value), &ok);
    if (ok && record && name == asked)
        set_string_variable(record, text.toLatin1().data());
}

void tellNoVariable(QWidget* parent) {
    QMessageBox::information(parent, QCoreApplication::translate("ValueEntry", "Error"),
                             QCoreApplication::translate("ValueEntry", "Please select a variable first."),
                             QMessageBox::Ok);
}
