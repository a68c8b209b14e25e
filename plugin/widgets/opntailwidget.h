// A log file on an operator's screen.
#ifndef OSTREL_WIDGETS_OPNTAILWIDGET_H
#define OSTREL_WIDGETS_OPNTAILWIDGET_H

#include <QColor>
#include <QFont>
#include <QString>
#include <QWidget>
#include <memory>

#include "core/formmemory.h"

class QAction;

namespace Ui {
class ZelTail;
}

// The name of the file, a button that pauses, and the growing text below.
class Q_DECL_EXPORT ZelTail : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString TailFileName READ getFileName WRITE setFileName)
    Q_PROPERTY(QColor gBackColor READ getgBackColor WRITE setgBackColor)
    Q_PROPERTY(QColor TextColor READ getTextColor WRITE setTextColor)
    Q_PROPERTY(QFont TextFont READ getTextFont WRITE setTextFont)
    Q_PROPERTY(bool showFileLabel READ getFileLabelShown WRITE setFileLabelShown)
    Q_PROPERTY(bool wrapText READ getWrapText WRITE setWrapText)

public:
    explicit ZelTail(QWidget* parent = nullptr);
    ~ZelTail() override;

    // The name as it was set last. A file that cannot be opened is passed over: the former one stays on the screen,
    // with its name. A pause goes on.
    QString getFileName() const { return m_fileName; }
    void setFileName(const QString& fn);
    // Invalid until set.
    QColor getgBackColor() const { return gBackColor; }
    void setgBackColor(const QColor& color);
    QColor getTextColor() const { return textColor; }
    void setTextColor(const QColor& color);
    QFont getTextFont() const { return textFont; }
    void setTextFont(const QFont& font);
    bool getFileLabelShown() const { return m_fileLabelShown; }
    void setFileLabelShown(bool isShown);
    bool getWrapText() const { return m_wrapText; }
    void setWrapText(bool isWrapped);

private Q_SLOTS:
    void viewProperties();
    void clearContents();
    void on_btnPause_clicked();

private:
    void initContextMenu();

    std::unique_ptr<Ui::ZelTail> ui;
    FormMemory memory;
    QString m_fileName;
    QAction* viewPropertiesAction = nullptr;
    QAction* clearWindowAction = nullptr;
    QColor gBackColor;
    QColor textColor;
    QFont textFont;
    bool m_fileLabelShown = true;
    bool m_wrapText = false;
};

#endif
