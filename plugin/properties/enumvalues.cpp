#include "properties/enumvalues.h"

#include <QVector>
#include <bit>

namespace {

struct Key {
    QString name;
    int value;
};

QVector<Key> distinctKeys(const QMetaEnum& metaEnum, bool bitsOnly) {
    QVector<Key> keys;
    for (int i = 0; i < metaEnum.keyCount(); ++i) {
        const int value = metaEnum.value(i);
        const bool known =
            std::any_of(keys.cbegin(), keys.cend(), [value](const Key& key) { return key.value == value; });
        if (!known && (!bitsOnly || isPowerOf2(value)))
            keys.append({QString::fromLatin1(metaEnum.key(i)), value});
    }
    return keys;
}

QStringList namesOf(const QVector<Key>& keys) {
    QStringList names;
    for (const Key& key : keys)
        names.append(key.name);
    return names;
}

}  // namespace

bool isPowerOf2(int value) {
    return std::has_single_bit(static_cast<unsigned>(value));
}

bool isSubValue(int value, int subValue) {
    return (value & subValue) == subValue;
}

QStringList enumNames(const QMetaEnum& metaEnum) {
    return namesOf(distinctKeys(metaEnum, false));
}

QStringList flagNames(const QMetaEnum& metaEnum) {
    return namesOf(distinctKeys(metaEnum, true));
}

int enumToInt(const QMetaEnum& metaEnum, int enumValue) {
    const QVector<Key> keys = distinctKeys(metaEnum, false);
    for (int i = 0; i < keys.size(); ++i) {
        if (keys[i].value == enumValue)
            return i;
    }
    return -1;
}

int intToEnum(const QMetaEnum& metaEnum, int intValue) {
    return distinctKeys(metaEnum, false).value(intValue, {QString(), -1}).value;
}

int flagToInt(const QMetaEnum& metaEnum, int flagValue) {
    const QVector<Key> keys = distinctKeys(metaEnum, true);
    unsigned mask = 0;
    for (int i = 0; i < keys.size(); ++i) {
        if (isSubValue(flagValue, keys[i].value))
            mask |= 1U << i;
    }
    return static_cast<int>(mask);
}

int intToFlag(const QMetaEnum& metaEnum, int intValue) {
    const QVector<Key> keys = distinctKeys(metaEnum, true);
    const auto mask = static_cast<quint64>(static_cast<unsigned>(intValue));
    if (mask >> keys.size())
        return -1;
    int value = 0;
    for (int i = 0; i < keys.size(); ++i) {
        if (mask & (quint64(1) << i))
            value |= keys[i].value;
    }
    return value;
}
