// Writing down a call of the platform.
#ifndef OSTREL_TESTS_SCRIPTED_CALLS_H
#define OSTREL_TESTS_SCRIPTED_CALLS_H

#include <QString>
#include <type_traits>

#include "scripted/platform.h"

namespace scripted {

inline QString shown(const char* text) {
    return text ? QString::fromLatin1(text) : QStringLiteral("null");
}
inline QString shown(const QString& text) {
    return text;
}
template <class Number>
requires std::is_arithmetic_v<Number> QString shown(Number number) {
    return QString::number(number);
}

// Records "FUNCTION ARGUMENT...".
template <class... Arguments>
void called(const char* function, const Arguments&... arguments) {
    platform().record((QStringList{QString::fromLatin1(function)} << ... << shown(arguments)).join(QLatin1Char(' ')));
}

// True when a test told the answer of this call; it is in `code` then, which else stays as it was.
inline bool answered(const char* function, short* code) {
    int answer = 0;
    if (!platform().hasAnswer(function, &answer))
        return false;
    *code = static_cast<short>(answer);
    return true;
}

inline QString labelAt(const void* record) {
    const Slot* slot = platform().slotAt(record);
    return slot ? slot->label : QStringLiteral("?");
}

}  // namespace scripted

#endif
