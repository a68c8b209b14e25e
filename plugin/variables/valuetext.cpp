#include "variables/valuetext.h"

#include <QDebug>
#include <QSet>
#include <array>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

bool isOneOf(char c, const char* set) {
    return c != '\0' && std::strchr(set, c) != nullptr;
}

// True when `format` holds exactly one conversion, and that one of `conversions`. A double may carry the length
// modifier l, which changes nothing.
bool isOneConversion(const QByteArray& format, const char* conversions, bool allowLong) {
    int found = 0;
    for (const char* p = format.constData(); *p; ++p) {
        if (*p != '%')
            continue;
        ++p;
        if (*p == '%')
            continue;
        while (isOneOf(*p, "-+ #0"))
            ++p;
        while (isOneOf(*p, "0123456789"))
            ++p;
        if (*p == '.')
            do
                ++p;
            while (isOneOf(*p, "0123456789"));
        if (allowLong && *p == 'l')
            ++p;
        if (!isOneOf(*p, conversions))
            return false;
        ++found;
    }
    return found == 1;
}

QByteArray checkedFormat(const char* format, size_t size, const char* conversions, const char* standIn, bool allowLong,
                         const QString& variable) {
    const QByteArray text(format, static_cast<int>(strnlen(format, size)));
    if (isOneConversion(text, conversions, allowLong))
        return text;
    static QSet<QString> reported;
    if (!reported.contains(variable)) {
        reported.insert(variable);
        qDebug("%s: the display format \"%s\" does not fit the value; using \"%s\"", qPrintable(variable),
               text.constData(), standIn);
    }
    return standIn;
}

// Numbers as the C library writes and reads them, with a point as decimal sign whatever the process's language is.
locale_t plainLocale() {
    static const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
    return plain;
}

// It rounds exactly half to even and knows %a.
template <typename Number>
QString printed(const char* format, Number value) {
    const locale_t before = uselocale(plainLocale());
    std::array<char, 128> text;
    const int length = std::snprintf(text.data(), text.size(), format, value);
    QString result;
    if (length >= 0 && static_cast<size_t>(length) < text.size()) {
        result = QString::fromUtf8(text.data(), length);
    } else if (length >= 0) {
        QByteArray longText(length + 1, '\0');
        std::snprintf(longText.data(), static_cast<size_t>(longText.size()), format, value);
        result = QString::fromUtf8(longText.constData(), length);
    }
    uselocale(before);
    return result;
}

}  // namespace

QString valueText(const char* format, size_t size, double value, const QString& variable) {
    const QByteArray checked = checkedFormat(format, size, "eEfFgGaA", "%g", true, variable);
    return printed(checked.constData(), value);
}

QString valueText(const char* format, size_t size, int value, const QString& variable) {
    const QByteArray checked = checkedFormat(format, size, "diuxXo", "%d", false, variable);
    return printed(checked.constData(), value);
}

double leadingNumber(const QString& text) {
    return strtod_l(text.toLatin1().constData(), nullptr, plainLocale());
}

void shortenNumber(QString& text) {
    const float number = static_cast<float>(leadingNumber(text));
    if (number != 0.0f)
        text = printed("%G", static_cast<double>(number));
}
