// The layout of a simple read-out: name above value, or both in one row.
#ifndef OSTREL_WIDGETS_UIMANAGER_H
#define OSTREL_WIDGETS_UIMANAGER_H

#include <memory>

#include "readoutparts.h"

namespace Ui {
class ZelSimpleValue;
class ZelSimpleValue_fl;
}  // namespace Ui

class Q_DECL_EXPORT UiManager : public ReadoutParts {
public:
    // Builds the form in `owner`.
    explicit UiManager(QWidget* owner);
    ~UiManager();

    // Places the parts. With `lockMaxHeight` the frame is kept as low as its texts, else its limit stays as it was.
    void setupUi(bool horizontal, bool lockMaxHeight);

private:
    std::unique_ptr<Ui::ZelSimpleValue> ui;
};

// The same for the read-out of free layout, which stands without a margin.
class Q_DECL_EXPORT UiManager_fl : public ReadoutParts {
public:
    explicit UiManager_fl(QWidget* owner);
    ~UiManager_fl();

    void setupUi(bool horizontal, bool lockMaxHeight);

private:
    std::unique_ptr<Ui::ZelSimpleValue_fl> ui;
};

#endif
