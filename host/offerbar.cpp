#include "offerbar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

OfferBar::OfferBar(QWidget* parent) : QFrame(parent), m_text(new QLabel), m_accept(new QPushButton) {
    setObjectName(QStringLiteral("offerBar"));
    m_text->setObjectName(QStringLiteral("offerText"));
    m_accept->setObjectName(QStringLiteral("offerAccept"));
    m_text->setWordWrap(true);
    // Its own colours: it must stand out from any form's.
    setStyleSheet(
        QStringLiteral("OfferBar { background: #dcebfa; border-bottom: 1px solid #7aa7d6; }"
                       "OfferBar QLabel { color: #10243a; }"));
    auto* later = new QPushButton(tr("Not Now"));
    later->setObjectName(QStringLiteral("offerLater"));
    auto* row = new QHBoxLayout(this);
    row->addWidget(m_text, 1);
    row->addWidget(m_accept);
    row->addWidget(later);
    connect(later, &QPushButton::clicked, this, &QWidget::hide);
    connect(m_accept, &QPushButton::clicked, this, [this] {
        hide();
        emit accepted();
    });
    hide();
}

void OfferBar::offer(const QString& text, const QString& button) {
    m_text->setText(text);
    m_accept->setText(button);
    show();
}
