// Forms with groups, and a group file.
#ifndef OSTREL_TESTS_HOST_GROUPFORM_H
#define OSTREL_TESTS_HOST_GROUPFORM_H

#include <QByteArray>

inline QByteArray widget(const char* className, const char* name, const QByteArray& properties) {
    return QByteArray("<item><widget class=\"") + className + "\" name=\"" + name + "\">" + properties +
           "</widget></item>";
}

inline QByteArray text(const char* property, const QByteArray& value) {
    return QByteArray("<property name=\"") + property + "\"><string>" + value + "</string></property>";
}

inline QByteArray group(const char* className, const char* name, const char* file) {
    return widget(className, name, text("FileName", file));
}

// A value with the name that Qt Designer gives to the first of its class, and that the read-outs of a group have too.
inline QByteArray formOf(const QByteArray& groups) {
    return "<ui version=\"4.0\"><class>Groups</class><widget class=\"QWidget\" name=\"Groups\">"
           "<layout class=\"QVBoxLayout\" name=\"column\">" +
           groups + widget("ZelSimpleValue", "ZelSimpleValue", text("name", "PUMP_ON")) + "</layout></widget></ui>";
}

inline constexpr char oil[] =
    "<?xml version=\"1.0\"?>\n<title name=\"Oil\"/>\n<row>\n  <var name=\"OIL_TEMP\"/>\n"
    "  <var name=\"ENGINE_SPEED\"/>\n</row>\n<row>\n  <var name=\"PUMP_ON\"/>\n</row>\n";

#endif
