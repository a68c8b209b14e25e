#include "dialogeditors.h"

#include <QColorDialog>
#include <QFontDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QToolButton>

#include "valueicons.h"

namespace {

// Takes over what was changed in the dialog, and leaves what the font has from its surroundings.
QFont withChanges(const QFont& former, const QFont& chosen) {
    QFont font = former;
    if (chosen.family() != former.family())
        font.setFamily(chosen.family());
    if (!qFuzzyCompare(chosen.pointSizeF(), former.pointSizeF()) && chosen.pointSizeF() > 0)
        font.setPointSizeF(chosen.pointSizeF());
    if (chosen.weight() != former.weight())
        font.setWeight(chosen.weight());
    if (chosen.style() != former.style())
        font.setStyle(chosen.style());
    if (chosen.styleName() != former.styleName())
        font.setStyleName(chosen.styleName());
    if (chosen.underline() != former.underline())
        font.setUnderline(chosen.underline());
    if (chosen.strikeOut() != former.strikeOut())
        font.setStrikeOut(chosen.strikeOut());
    if (chosen.kerning() != former.kerning())
        font.setKerning(chosen.kerning());
    return font;
}

}  // namespace

DialogEditor::DialogEditor(QWidget* parent) : QWidget(parent), m_icon(new QLabel(this)), m_text(new QLabel(this)) {
    auto* button = new QToolButton(this);
    button->setText(QStringLiteral("..."));
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
    button->setFixedWidth(24);
    button->setFocusPolicy(Qt::StrongFocus);
    m_text->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 0, 0, 0);
    layout->setSpacing(4);
    layout->addWidget(m_icon);
    layout->addWidget(m_text, 1);
    layout->addWidget(button);
    setFocusProxy(button);
    connect(button, &QToolButton::clicked, this, [this] { choose(); });
}

void DialogEditor::show(const QIcon& icon, const QString& text) {
    m_icon->setPixmap(icon.pixmap(16, 16));
    m_text->setText(text);
}

void ColorEditor::setValue(const QColor& color) {
    m_color = color;
    show(colorIcon(color), colorText(color));
}

// Editor and property may be gone when a dialog closes.
void ColorEditor::choose() {
    const QPointer<ColorEditor> self = this;
    const QColor chosen = QColorDialog::getColor(m_color.isValid() ? m_color : QColor(Qt::white), this, QString(),
                                                 QColorDialog::ShowAlphaChannel);
    if (!self || !chosen.isValid() || chosen == m_color)
        return;
    setValue(chosen);
    Q_EMIT valueChanged(chosen);
}

void FontEditor::setValue(const QFont& font) {
    m_font = font;
    show(fontIcon(font), fontText(font));
}

void FontEditor::choose() {
    const QPointer<FontEditor> self = this;
    bool accepted = false;
    const QFont chosen = QFontDialog::getFont(&accepted, m_font, this, tr("Select Font"));
    if (!self || !accepted)
        return;
    const QFont font = withChanges(m_font, chosen);
    if (font == m_font)
        return;
    setValue(font);
    Q_EMIT valueChanged(font);
}
