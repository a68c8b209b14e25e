// Numbers and the date.
#include "rangetypes.h"

#include <QLocale>
#include <QtMath>
#include <climits>

namespace {

class IntType : public RangeType<int> {
public:
    IntType() : RangeType(-INT_MAX, INT_MAX, {{attribute::singleStep, 1}, {attribute::readOnly, false}}) {}
    QVariant initialValue() const override { return 0; }
    QString text(const PropertyState& state) const override { return QString::number(state.value.toInt()); }
};

class DoubleType : public RangeType<double> {
public:
    DoubleType()
        : RangeType(-INT_MAX, INT_MAX,
                    {{attribute::singleStep, 1.0}, {attribute::decimals, 2}, {attribute::readOnly, false}}) {}
    QVariant initialValue() const override { return 0.0; }
    // To the last bit, while QVariant compares with a tolerance; a value that is no number is no change of itself.
    bool isSame(const QVariant& left, const QVariant& right) const override {
        const double a = left.toDouble();
        const double b = right.toDouble();
        return !(a < b) && !(a > b) && qIsNaN(a) == qIsNaN(b);
    }
    QString text(const PropertyState& state) const override {
        return QLocale::system().toString(state.value.toDouble(), 'f',
                                          state.attributes.value(attribute::decimals).toInt());
    }
};

class DateType : public RangeType<QDate> {
public:
    DateType() : RangeType(QDate(1752, 9, 14), QDate(7999, 12, 31)) {}
    QVariant initialValue() const override { return QDate::currentDate(); }
    QString text(const PropertyState& state) const override {
        return QLocale().toString(state.value.toDate(), QLocale::ShortFormat);
    }
};

}  // namespace

void addRangeTypes(PropertyTypes* types) {
    types->insert(QVariant::Int, std::make_shared<IntType>());
    types->insert(QVariant::Double, std::make_shared<DoubleType>());
    types->insert(QVariant::Date, std::make_shared<DateType>());
}
