// The mark of a widget whose variable the store does not know.
#ifndef OSTREL_VARIABLES_NOTFOUNDMARK_H
#define OSTREL_VARIABLES_NOTFOUNDMARK_H

#include <QString>
#include <QVector>

class QLabel;
class QWidget;

// A picture beside the value, and words for it as the tool tip of some widgets, in place of the tool tip of their own.
// The picture is the one that the site installed where forms expect it, else the library's own. All widgets outlive it.
class NotFoundMark {
public:
    // Starts hidden. `tipOwners` bear the tool tip.
    NotFoundMark(QLabel* icon, QVector<QWidget*> tipOwners);

    void show(bool shown);
    bool isShown() const { return m_isShown; }
    // Hides the picture, and leaves the tool tips as they are.
    void hidePicture();
    // The words alone, without the picture.
    void showWords(bool shown);

    // The tool tip that the form or the operator gave. It shows while there is no mark.
    void setToolTip(const QString& text);
    const QString& toolTip() const { return m_toolTip; }
    // Sets that tool tip aside for another text, until words or a tool tip are shown the next time.
    void showInstead(const QString& text);

private:
    QLabel* m_icon;
    QVector<QWidget*> m_tipOwners;
    QString m_toolTip;
    bool m_isShown = false;
};

#endif
