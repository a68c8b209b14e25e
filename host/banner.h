// The banner over a form whose values are not fresh.
#ifndef OSTREL_HOST_BANNER_H
#define OSTREL_HOST_BANNER_H

#include <QWidget>

// Paints itself, so that no style sheet of a site can make it look harmless.
class Banner : public QWidget {
    Q_OBJECT

public:
    explicit Banner(QWidget* parent = nullptr);

    // Shows both, the headline large; hides with an empty headline. The accessible name is "HEADLINE: reason".
    void tell(const QString& headline, const QString& reason);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QFont headlineFont() const;
    QFont reasonFont() const;
    int textHeight(const QFont& font, const QString& text, int width) const;

    QString m_headline;
    QString m_reason;
};

#endif
