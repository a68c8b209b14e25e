// Texts in the store's records, which need no terminating zero when they fill their field.
#ifndef OSTREL_VARIABLES_RECORDTEXT_H
#define OSTREL_VARIABLES_RECORDTEXT_H

#include <QString>
#include <cstring>

template <size_t size>
QString recordText(const char (&field)[size]) {
    return QString::fromUtf8(field, static_cast<int>(strnlen(field, size)));
}

// Whether `text` is what the field holds. Asked on every sample of a text, so it builds no string for plain ASCII.
template <size_t size>
bool isRecordText(const QString& text, const char (&field)[size]) {
    const int length = static_cast<int>(strnlen(field, size));
    for (int i = 0; i < length; ++i) {
        if (static_cast<unsigned char>(field[i]) > 127)
            return text == recordText(field);
        if (i >= text.size() || text[i] != QLatin1Char(field[i]))
            return false;
    }
    return text.size() == length;
}

// Takes the field's text; false where `text` is that already. A null text is none: it differs even from an empty one.
template <size_t size>
bool takeRecordText(const char (&field)[size], QString* text) {
    if (!text->isNull() && isRecordText(*text, field))
        return false;
    *text = recordText(field);
    return true;
}

// A unit keyword for the units service, which wants a terminating zero also behind one that fills its field.
class UnitKeyword {
public:
    explicit UnitKeyword(const char (&field)[16]) { std::memcpy(m_text, field, sizeof(field)); }
    char* text() { return m_text; }

private:
    char m_text[17] = {};
};

// Copies a text of the GUI into a fixed field of this process, always terminated.
template <size_t size>
void copyText(char (&field)[size], const QByteArray& text) {
    std::memset(field, 0, size);
    std::strncpy(field, text.constData(), size - 1);
}

#endif
