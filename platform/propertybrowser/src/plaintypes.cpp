// Types of one piece without a range: truth, text, times, keys, and the group.
#include <QApplication>
#include <QDateTime>
#include <QKeySequence>
#include <QLineEdit>
#include <QPainter>
#include <QRegExp>
#include <QStyle>
#include <QStyleOptionButton>

#include "propertytype.h"

namespace {

class BoolType : public PropertyType {
public:
    BoolType() : PropertyType(QVariant::Bool, {{attribute::textVisible, true}}) {}

    QVariant initialValue() const override { return false; }
    QString text(const PropertyState& state) const override {
        if (!state.attributes.value(attribute::textVisible).toBool())
            return QString();
        return state.value.toBool() ? QApplication::translate("QtBoolPropertyManager", "True")
                                    : QApplication::translate("QtBoolPropertyManager", "False");
    }
    QIcon icon(const PropertyState& state) const override {
        QStyleOptionButton option;
        const QStyle* style = QApplication::style();
        option.rect.setSize(QSize(style->pixelMetric(QStyle::PM_IndicatorWidth, &option),
                                  style->pixelMetric(QStyle::PM_IndicatorHeight, &option)));
        option.state = QStyle::State_Enabled | (state.value.toBool() ? QStyle::State_On : QStyle::State_Off);
        QPixmap pixmap(option.rect.size());
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        style->drawPrimitive(QStyle::PE_IndicatorCheckBox, &option, &painter);
        return QIcon(pixmap);
    }
};

class StringType : public PropertyType {
public:
    StringType()
        : PropertyType(QVariant::String, {{attribute::regExp, QRegExp("*", Qt::CaseSensitive, QRegExp::Wildcard)},
                                          {attribute::echoMode, static_cast<int>(QLineEdit::Normal)},
                                          {attribute::readOnly, false}}) {}

    QVariant initialValue() const override { return QString(); }
    QVariant accepted(const QVariant& wanted, const PropertyState& state) const override {
        const QRegExp allowed = state.attributes.value(attribute::regExp).toRegExp();
        return allowed.exactMatch(wanted.toString()) ? wanted : state.value;
    }
    // An empty text is not told apart from none.
    bool isSame(const QVariant& left, const QVariant& right) const override {
        return left.toString() == right.toString();
    }
    QString text(const PropertyState& state) const override {
        const QString text = state.value.toString();
        switch (state.attributes.value(attribute::echoMode).toInt()) {
            case QLineEdit::NoEcho:
                return QString();
            case QLineEdit::Password:
            case QLineEdit::PasswordEchoOnEdit: {
                const int mask = QApplication::style()->styleHint(QStyle::SH_LineEdit_PasswordCharacter);
                return QString(text.size(), QChar(static_cast<ushort>(mask)));
            }
            default:
                return text;
        }
    }
};

class TimeType : public PropertyType {
public:
    TimeType() : PropertyType(QVariant::Time, {}) {}
    QVariant initialValue() const override { return QTime::currentTime(); }
    QString text(const PropertyState& state) const override {
        return QLocale().toString(state.value.toTime(), QLocale::ShortFormat);
    }
};

class DateTimeType : public PropertyType {
public:
    DateTimeType() : PropertyType(QVariant::DateTime, {}) {}
    QVariant initialValue() const override { return QDateTime::currentDateTime(); }
    QString text(const PropertyState& state) const override {
        const QDateTime moment = state.value.toDateTime();
        if (!moment.isValid())
            return QString();
        return QLocale().toString(moment.date(), QLocale::ShortFormat) + QLatin1Char(' ') +
               QLocale().toString(moment.time(), QLocale::ShortFormat);
    }
};

class KeySequenceType : public PropertyType {
public:
    KeySequenceType() : PropertyType(QVariant::KeySequence, {}) {}
    QVariant initialValue() const override { return QKeySequence(); }
    bool isSame(const QVariant& left, const QVariant& right) const override {
        return left.value<QKeySequence>() == right.value<QKeySequence>();
    }
    QString text(const PropertyState& state) const override {
        return state.value.value<QKeySequence>().toString(QKeySequence::NativeText);
    }
};

class CharType : public PropertyType {
public:
    CharType() : PropertyType(QVariant::Char, {}) {}
    QVariant initialValue() const override { return QChar(); }
    QString text(const PropertyState& state) const override {
        const QChar character = state.value.toChar();
        return character.isNull() ? QString() : QString(character);
    }
};

class GroupType : public PropertyType {
public:
    GroupType() : PropertyType(QVariant::Invalid, {}) {}
    QVariant initialValue() const override { return QVariant(); }
};

}  // namespace

void addPlainTypes(PropertyTypes* types) {
    types->insert(QVariant::Bool, std::make_shared<BoolType>());
    types->insert(QVariant::String, std::make_shared<StringType>());
    types->insert(QVariant::Time, std::make_shared<TimeType>());
    types->insert(QVariant::DateTime, std::make_shared<DateTimeType>());
    types->insert(QVariant::KeySequence, std::make_shared<KeySequenceType>());
    types->insert(QVariant::Char, std::make_shared<CharType>());
    types->insert(groupPropertyType(), std::make_shared<GroupType>());
}
