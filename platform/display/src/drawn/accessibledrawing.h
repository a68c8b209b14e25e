// What the drawn widgets tell to a screen reader.
#ifndef OSTREL_DISPLAY_DRAWN_ACCESSIBLEDRAWING_H
#define OSTREL_DISPLAY_DRAWN_ACCESSIBLEDRAWING_H

#include <QAccessibleWidget>
#include <functional>
#include <optional>

// What there is to be read aloud. It is asked for when somebody listens, so that nobody else pays for it.
struct SpokenDrawing {
    QString name;                 // where the form gives none
    QString value;                // as it stands on the screen
    QString description;          // where the form gives none
    std::optional<bool> checked;  // of a lamp
    double current = 0.0;         // of a scale; not a number where there is no value
    double minimum = 0.0;
    double maximum = 0.0;
};

// Read only: no screen reader can move what a cell has measured.
class AccessibleDrawing : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    using Speech = std::function<SpokenDrawing()>;

    AccessibleDrawing(QWidget* widget, QAccessible::Role role, Speech speech);

    void* interface_cast(QAccessible::InterfaceType type) override;
    QString text(QAccessible::Text part) const override;
    QAccessible::State state() const override;

    QVariant currentValue() const override;
    void setCurrentValue(const QVariant& value) override;
    QVariant maximumValue() const override;
    QVariant minimumValue() const override;
    QVariant minimumStepSize() const override;

private:
    Speech m_speech;
};

// Known to Qt as long as the library that it stands in is loaded.
class AccessibleFactory {
public:
    explicit AccessibleFactory(QAccessible::InterfaceFactory factory);
    ~AccessibleFactory();
    AccessibleFactory(const AccessibleFactory&) = delete;
    AccessibleFactory& operator=(const AccessibleFactory&) = delete;

private:
    QAccessible::InterfaceFactory m_factory;
};

#endif
