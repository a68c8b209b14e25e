// A line above the form that offers something, and waits without holding anybody up.
#ifndef OSTREL_HOST_OFFERBAR_H
#define OSTREL_HOST_OFFERBAR_H

#include <QFrame>

class QLabel;
class QPushButton;

class OfferBar : public QFrame {
    Q_OBJECT

public:
    explicit OfferBar(QWidget* parent = nullptr);

    void offer(const QString& text, const QString& button);

Q_SIGNALS:
    void accepted();

private:
    QLabel* m_text;
    QPushButton* m_accept;
};

#endif
