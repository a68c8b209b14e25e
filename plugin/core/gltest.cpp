#include "core/gltest.h"

#include <cstring>

Q_DECL_EXPORT bool VBOS_ENABLED = false;

Q_DECL_EXPORT bool IsExtensionSupported(char* extension) {
    if (*extension == '\0' || std::strchr(extension, ' '))
        return false;
    const char* list = reinterpret_cast<const char*>(glGetString(GL_EXTENSIONS));
    if (!list)
        return false;
    // A name may stand inside a longer one, so a hit counts only as a whole word.
    const size_t length = std::strlen(extension);
    for (const char* hit = std::strstr(list, extension); hit; hit = std::strstr(hit + length, extension)) {
        const bool starts = hit == list || hit[-1] == ' ';
        const bool ends = hit[length] == ' ' || hit[length] == '\0';
        if (starts && ends)
            return true;
    }
    return false;
}

GLTest::GLTest(QWidget* parent) : QGLWidget(parent) {}

void GLTest::initializeGL() {
    char name[] = "GL_ARB_vertex_buffer_object";
    VBOS_ENABLED = IsExtensionSupported(name);
}

void GLTest::resizeGL(int, int) {}

void GLTest::paintGL() {}
