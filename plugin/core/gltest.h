// Probes what the OpenGL driver offers.
#ifndef OSTREL_CORE_GLTEST_H
#define OSTREL_CORE_GLTEST_H

#include <QGLWidget>

// Whether the driver has vertex buffer objects; false until a GLTest was initialised.
extern bool VBOS_ENABLED;

// True when the driver of the current context lists that extension; false without a context.
bool IsExtensionSupported(char* extension);

class Q_DECL_EXPORT GLTest : public QGLWidget {
    Q_OBJECT

public:
    explicit GLTest(QWidget* parent = nullptr);

protected:
    void initializeGL() override;
    void resizeGL(int width, int height) override;
    void paintGL() override;
};

#endif
