// A button that starts commands.
#ifndef OSTREL_WIDGETS_ZEL_CMDBUTTON_H
#define OSTREL_WIDGETS_ZEL_CMDBUTTON_H

#include <array>

#include "commandbuttonbase.h"
#include "commandlauncher.h"

// A click starts the commands of `cmd` side by side, as a command line does. Detached, the button starts and forgets;
// otherwise it is disabled until all of them have ended. A button without a command is disabled for good by a click.
class Q_DECL_EXPORT ZelCmdButton : public CommandButtonBase {
    Q_OBJECT
    Q_PROPERTY(QString cmd READ getCmd WRITE setCmd)
    Q_PROPERTY(QString label READ getLabel WRITE setLabel)
    Q_PROPERTY(QFont cmdFont READ getCmdFont WRITE setCmdFont)
    Q_PROPERTY(bool detached READ getDetached WRITE setDetached)
    Q_PROPERTY(QString toolTip READ getToolTipString WRITE setToolTipString)

public:
    explicit ZelCmdButton(QWidget* parent = nullptr);
    ~ZelCmdButton() override;

    QString getCmd() const { return cmd; }
    void setCmd(const QString& commands);
    QString getToolTipString() const { return toolTip(); }
    void setToolTipString(const QString& toolTip);

private Q_SLOTS:
    void ZelCmdButton_clicked();
    void viewProperties();
    void futureFinished();

private:
    bool start(const QStringList& words, int piece);

    QString cmd;
    // The last ten commands.
    std::array<BUTTON_ARGS, 10> button_clicks;
    size_t button_click_count = 0;  // the place of the next one
};

#endif
