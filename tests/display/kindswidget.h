// A widget with a property of every kind that a form can hold.
#ifndef OSTREL_TESTS_DISPLAY_KINDSWIDGET_H
#define OSTREL_TESTS_DISPLAY_KINDSWIDGET_H

#include <QColor>
#include <QFont>
#include <QLabel>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QStringList>
#include <QWidget>

class KindsBase : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QColor color MEMBER m_color)

public:
    using QWidget::QWidget;

private:
    QColor m_color;
};

class KindsWidget : public KindsBase {
    Q_OBJECT
    Q_PROPERTY(QString title MEMBER m_title)
    Q_PROPERTY(QString name MEMBER m_name)
    Q_PROPERTY(QString label MEMBER m_label)
    Q_PROPERTY(QString FileName MEMBER m_fileName)
    Q_PROPERTY(int ticks MEMBER m_ticks)
    Q_PROPERTY(bool shown MEMBER m_shown)
    Q_PROPERTY(double limit MEMBER m_limit)
    Q_PROPERTY(Shape shape MEMBER m_shape)
    Q_PROPERTY(Parts parts READ parts WRITE setParts)
    Q_PROPERTY(Qt::Orientation direction MEMBER m_direction)
    Q_PROPERTY(Qt::Alignment place MEMBER m_place)
    Q_PROPERTY(QColor tint MEMBER m_tint)
    Q_PROPERTY(QSize extent MEMBER m_extent)
    Q_PROPERTY(QPoint origin MEMBER m_origin)
    Q_PROPERTY(QRect area MEMBER m_area)
    Q_PROPERTY(QStringList choices MEMBER m_choices)
    Q_PROPERTY(QFont face MEMBER m_face)

public:
    enum Shape { Circle, Square, Triangle };
    Q_ENUM(Shape)
    enum Part { Name = 1, Value = 2, Units = 4 };
    Q_DECLARE_FLAGS(Parts, Part)
    Q_FLAG(Parts)

    Parts parts() const { return m_parts; }
    void setParts(Parts parts) { m_parts = parts; }

    explicit KindsWidget(QWidget* parent) : KindsBase(parent) {
        (new QLabel(this))->setObjectName(QStringLiteral("other"));
    }

private:
    QString m_title;
    QString m_name;
    QString m_label;
    QString m_fileName;
    int m_ticks = 0;
    bool m_shown = false;
    double m_limit = 0;
    Shape m_shape = Circle;
    Parts m_parts = Value;
    Qt::Orientation m_direction = Qt::Horizontal;
    Qt::Alignment m_place = Qt::AlignLeft;
    QColor m_tint;
    QSize m_extent;
    QPoint m_origin;
    QRect m_area;
    QStringList m_choices;
    QFont m_face;
};

#endif
