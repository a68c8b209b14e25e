// A property browser as a tree of two columns, name and value, with editors in the rows.
#ifndef OSTREL_PROPERTYBROWSER_QTTREEPROPERTYBROWSER_H
#define OSTREL_PROPERTYBROWSER_QTTREEPROPERTYBROWSER_H

#include "qtpropertybrowser.h"

class QT_QTPROPERTYBROWSER_EXPORT QtTreePropertyBrowser : public QtAbstractPropertyBrowser {
    Q_OBJECT
    Q_PROPERTY(int indentation READ indentation WRITE setIndentation)
    Q_PROPERTY(bool rootIsDecorated READ rootIsDecorated WRITE setRootIsDecorated)
    Q_PROPERTY(bool alternatingRowColors READ alternatingRowColors WRITE setAlternatingRowColors)
    Q_PROPERTY(bool headerVisible READ isHeaderVisible WRITE setHeaderVisible)
    Q_PROPERTY(ResizeMode resizeMode READ resizeMode WRITE setResizeMode)
    Q_PROPERTY(int splitterPosition READ splitterPosition WRITE setSplitterPosition)
    Q_PROPERTY(
        bool propertiesWithoutValueMarked READ propertiesWithoutValueMarked WRITE setPropertiesWithoutValueMarked)

public:
    enum ResizeMode { Interactive, Stretch, Fixed, ResizeToContents };
    Q_ENUM(ResizeMode)

    explicit QtTreePropertyBrowser(QWidget* parent = nullptr);
    ~QtTreePropertyBrowser() override;

    int indentation() const;
    void setIndentation(int pixels);
    bool rootIsDecorated() const;
    void setRootIsDecorated(bool show);
    bool alternatingRowColors() const;
    void setAlternatingRowColors(bool enable);
    bool isHeaderVisible() const;
    void setHeaderVisible(bool visible);
    ResizeMode resizeMode() const;
    void setResizeMode(ResizeMode mode);
    // Width of the name column; it can be set in the modes Interactive and Fixed.
    int splitterPosition() const;
    void setSplitterPosition(int position);

    // Every inserted row starts expanded.
    void setExpanded(QtBrowserItem* item, bool expanded);
    bool isExpanded(QtBrowserItem* item) const;
    // The row's own flag; rows below a hidden one keep theirs.
    bool isItemVisible(QtBrowserItem* item) const;
    void setItemVisible(QtBrowserItem* item, bool visible);
    // An invalid colour takes it back.
    void setBackgroundColor(QtBrowserItem* item, const QColor& color);
    QColor backgroundColor(QtBrowserItem* item) const;
    // The item's own colour, else that of its nearest ancestor with one.
    QColor calculatedBackgroundColor(QtBrowserItem* item) const;

    // Paints rows without a value as headings.
    bool propertiesWithoutValueMarked() const;
    void setPropertiesWithoutValueMarked(bool mark);

    // Makes the item current and opens its editor, where it has one and is enabled.
    void editItem(QtBrowserItem* item);

Q_SIGNALS:
    void collapsed(QtBrowserItem* item);
    void expanded(QtBrowserItem* item);

protected:
    void itemInserted(QtBrowserItem* item, QtBrowserItem* after) override;
    void itemRemoved(QtBrowserItem* item) override;
    void itemChanged(QtBrowserItem* item) override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

#endif
