#ifndef OSTREL_VALUEMANAGER_FILEPLUGIN_VALMANFILEPLUGIN_H
#define OSTREL_VALUEMANAGER_FILEPLUGIN_VALMANFILEPLUGIN_H

#include "valuemanager/ValueManagerPluginBase.h"

class Q_DECL_EXPORT ValManFilePlugin : public ValueManagerPluginBase {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    explicit ValManFilePlugin(QObject* parent = nullptr);
    QWidget* createWidget(QWidget* parent) override;
    QIcon icon() const override;
    void initialize(QDesignerFormEditorInterface* formEditor) override;
};

#endif
