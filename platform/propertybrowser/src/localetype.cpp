// A language and a country of those that speak it.
#include <QCoreApplication>
#include <QLocale>
#include <QSet>
#include <algorithm>

#include "propertytype.h"

namespace {

template <class Number>
QVector<Number> sortedByName(const QSet<Number>& numbers, QString (*name)(Number)) {
    QVector<Number> sorted(numbers.cbegin(), numbers.cend());
    std::sort(sorted.begin(), sorted.end(), [name](Number left, Number right) { return name(left) < name(right); });
    return sorted;
}

template <class Number>
QStringList namesOf(const QVector<Number>& numbers, QString (*name)(Number)) {
    QStringList names;
    for (const Number number : numbers)
        names.append(name(number));
    return names;
}

const QVector<QLocale::Language>& languages() {
    static const QVector<QLocale::Language> all = [] {
        QSet<QLocale::Language> found;
        const QList<QLocale> locales =
            QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyCountry);
        for (const QLocale& locale : locales)
            found.insert(locale.language());
        return sortedByName(found, QLocale::languageToString);
    }();
    return all;
}

QVector<QLocale::Country> countriesOf(QLocale::Language language) {
    QSet<QLocale::Country> found;
    const QList<QLocale> locales = QLocale::matchingLocales(language, QLocale::AnyScript, QLocale::AnyCountry);
    for (const QLocale& locale : locales)
        found.insert(locale.country());
    return sortedByName(found, QLocale::countryToString);
}

class LocaleType : public PropertyType {
public:
    LocaleType() : PropertyType(QVariant::Locale, {}) {}
    QVariant initialValue() const override { return QLocale(); }
    bool isSame(const QVariant& left, const QVariant& right) const override {
        return left.toLocale() == right.toLocale();
    }
    QString text(const PropertyState& state) const override {
        const QLocale locale = state.value.toLocale();
        return QLocale::languageToString(locale.language()) + QStringLiteral(", ") +
               QLocale::countryToString(locale.country());
    }
    QVector<PropertyPart> parts(const PropertyState& state) const override {
        const auto part = [](const char* name, const QStringList& names) {
            return PropertyPart{QCoreApplication::translate("QtVariantPropertyManager", name),
                                enumPropertyType(),
                                {{attribute::enumNames, names}}};
        };
        return {part("Language", namesOf(languages(), QLocale::languageToString)),
                part("Country", namesOf(countriesOf(state.value.toLocale().language()), QLocale::countryToString))};
    }
    QVariant part(const QVariant& whole, int index, const Attributes&) const override {
        const QLocale locale = whole.toLocale();
        const int place = index == 0 ? languages().indexOf(locale.language())
                                     : countriesOf(locale.language()).indexOf(locale.country());
        return qMax(0, place);
    }
    QVariant withPart(const PropertyState& whole, int index, const QVariant& part, const Attributes&) const override {
        const QLocale locale = whole.value.toLocale();
        if (index == 1)
            return QLocale(locale.language(), countriesOf(locale.language()).value(part.toInt()));
        const QLocale::Language language = languages().value(part.toInt());
        // The country stays where the language is spoken there, else it is the language's first.
        return countriesOf(language).contains(locale.country()) ? QLocale(language, locale.country())
                                                                : QLocale(language);
    }
};

}  // namespace

void addLocaleType(PropertyTypes* types) {
    types->insert(QVariant::Locale, std::make_shared<LocaleType>());
}
