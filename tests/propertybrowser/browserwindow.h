// What the tests of the property browser have in common: a browser on the screen.
#ifndef OSTREL_TESTS_PROPERTYBROWSER_BROWSERWINDOW_H
#define OSTREL_TESTS_PROPERTYBROWSER_BROWSERWINDOW_H

#include <qttreepropertybrowser.h>
#include <qtvariantproperty.h>

#include <QTest>
#include <QTreeWidget>
#include <QVBoxLayout>

// A browser with one property of each kind that the cases need, on the screen.
class Window : public QWidget {
public:
    Window() {
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(browser);
        manager = new QtVariantPropertyManager(this);
        factory = new QtVariantEditorFactory(this);
        browser->setFactoryForManager(manager, factory);
        group = manager->addProperty(QtVariantPropertyManager::groupTypeId(), "group");
        for (const auto& [type, name] : std::initializer_list<std::pair<int, const char*>>{{QVariant::Double, "real"},
                                                                                           {QVariant::String, "text"},
                                                                                           {QVariant::Bool, "truth"},
                                                                                           {QVariant::Point, "point"}})
            group->addSubProperty(manager->addProperty(type, name));
        browser->addProperty(group);
        resize(400, 400);
    }
    bool isReady() {
        show();
        activateWindow();
        return QTest::qWaitForWindowActive(this);
    }
    QTreeWidget* tree() const { return browser->findChild<QTreeWidget*>(); }
    QTreeWidgetItem* row(const QString& name) const {
        return tree()->findItems(name, Qt::MatchExactly | Qt::MatchRecursive).value(0);
    }
    QtVariantProperty* property(const QString& name) const {
        for (QtProperty* candidate : manager->properties()) {
            if (candidate->propertyName() == name)
                return manager->variantProperty(candidate);
        }
        return nullptr;
    }
    void click(const QString& name, int column) const {
        const QPoint place(tree()->columnViewportPosition(column) + 50, tree()->visualItemRect(row(name)).center().y());
        QTest::mouseClick(tree()->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    }
    template <class Editor>
    Editor* editor() const {
        return tree()->viewport()->findChild<Editor*>();
    }

    QtTreePropertyBrowser* browser = new QtTreePropertyBrowser;
    QtVariantPropertyManager* manager = nullptr;
    QtVariantEditorFactory* factory = nullptr;
    QtVariantProperty* group = nullptr;
};

#endif
