#include "widgets/uimanager.h"

#include "ui_zel_simplevalue.h"
#include "ui_zel_simplevalue_fl.h"

namespace {

constexpr int rowHeight = 20;
constexpr int columnHeight = 38;
constexpr int smallestWidth = 60;
// Keeps a value from running into its name.
constexpr int gap = 4;

template <class Form>
void takeParts(ReadoutParts& parts, Form& form, QWidget* owner) {
    form.setupUi(owner);
    parts.widget = owner;
    parts.name = form.name;
    parts.value = form.value;
    parts.frame = form.frame;
    parts.iconLabel = form.iconLabel;
}

template <class Form>
void placeInRow(const ReadoutParts& parts, Form& form, bool lockMaxHeight) {
    if (lockMaxHeight)
        parts.frame->setMaximumHeight(rowHeight);
    form.gridLayout->addWidget(parts.name, 0, 0);
    form.gridLayout->addWidget(parts.iconLabel, 0, 1);
    form.gridLayout->addWidget(parts.value, 0, 2);
    parts.value->setContentsMargins(gap, 0, 0, 0);
    form.gridLayout->setSpacing(0);
    form.gridLayout->setContentsMargins(0, 1, 0, 0);
    parts.widget->setMinimumSize(smallestWidth, rowHeight);
}

template <class Form>
void placeInColumn(const ReadoutParts& parts, Form& form, bool lockMaxHeight, int rightMargin) {
    if (lockMaxHeight)
        parts.frame->setMaximumHeight(columnHeight);
    form.gridLayout_2->addWidget(parts.name, 0, 0);
    form.gridLayout_2->addWidget(parts.iconLabel, 0, 1);
    form.gridLayout_3->addWidget(parts.value, 1, 0);
    parts.value->setContentsMargins(0, 0, 0, 0);
    form.gridLayout->setSpacing(0);
    form.gridLayout->setContentsMargins(0, 0, rightMargin, 0);
    parts.widget->setMinimumSize(smallestWidth, columnHeight);
}

template <class Form>
void place(const ReadoutParts& parts, Form& form, bool horizontal, bool lockMaxHeight, int columnMargin) {
    form.gridLayout->removeWidget(parts.name);
    form.gridLayout->removeWidget(parts.iconLabel);
    form.gridLayout->removeWidget(parts.value);
    if (horizontal)
        placeInRow(parts, form, lockMaxHeight);
    else
        placeInColumn(parts, form, lockMaxHeight, columnMargin);
    form.gridLayout->invalidate();
    parts.widget->updateGeometry();
}

}  // namespace

UiManager::UiManager(QWidget* owner) : ui(std::make_unique<Ui::ZelSimpleValue>()) {
    takeParts(*this, *ui, owner);
}

UiManager::~UiManager() = default;

void UiManager::setupUi(bool horizontal, bool lockMaxHeight) {
    constexpr int columnMargin = 2;
    place(*this, *ui, horizontal, lockMaxHeight, columnMargin);
}

UiManager_fl::UiManager_fl(QWidget* owner) : ui(std::make_unique<Ui::ZelSimpleValue_fl>()) {
    takeParts(*this, *ui, owner);
}

UiManager_fl::~UiManager_fl() = default;

void UiManager_fl::setupUi(bool horizontal, bool lockMaxHeight) {
    place(*this, *ui, horizontal, lockMaxHeight, 0);
}
