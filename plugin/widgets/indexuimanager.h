// The layout of a channel's read-out: name, value, and the channel's index on a number display.
#ifndef OSTREL_WIDGETS_INDEXUIMANAGER_H
#define OSTREL_WIDGETS_INDEXUIMANAGER_H

#include <QLCDNumber>
#include <memory>

#include "readoutparts.h"

namespace Ui {
class ZelSimpleValueChanIndex;
}

class Q_DECL_EXPORT IndexUiManager : public ReadoutParts {
public:
    // Builds the form in `owner`.
    explicit IndexUiManager(QWidget* owner);
    ~IndexUiManager();

    // Places all parts in one row, or the number display beside name and value.
    void setupUi(bool horizontal);

    QLCDNumber* lcdNumber = nullptr;

private:
    void placeInRow();
    void placeInColumn();

    std::unique_ptr<Ui::ZelSimpleValueChanIndex> ui;
};

#endif
