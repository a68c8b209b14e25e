// Many tests in one program, of which each start runs one by its name: PROGRAM NAME [OPTION OF QTTEST...]
#ifndef OSTREL_TESTS_QTTESTS_H
#define OSTREL_TESTS_QTTESTS_H

#include <QApplication>
#include <QTest>

// Qt gives a condition five seconds, which is little where every processor has other work. What comes is not waited for
// any longer by this.
#undef QTRY_VERIFY
#define QTRY_VERIFY(condition) QTRY_VERIFY_WITH_TIMEOUT((condition), 20000)
#undef QTRY_COMPARE
#define QTRY_COMPARE(actual, expected) QTRY_COMPARE_WITH_TIMEOUT((actual), expected, 20000)

struct NamedRun {
    const char* name;
    int (*run)(int argc, char** argv);
};

// Adds a run to the program's; before main().
bool addRun(const NamedRun& run);

template <class Application, class Test>
int runQtTest(int argc, char** argv) {
    Application application(argc, argv);
    application.setAttribute(Qt::AA_Use96Dpi, true);
    Test test;
    return QTest::qExec(&test, argc, argv);
}

// One of them stands at the end of a test's source, before the include of its .moc file.
#define OSTREL_TEST(Class) static const bool isAdded = addRun({#Class, runQtTest<QApplication, Class>});
#define OSTREL_TEST_WITHOUT_SCREEN(Class) \
    static const bool isAdded = addRun({#Class, runQtTest<QCoreApplication, Class>});

// A program that a test starts by this name, from this very file: static int function(int argc, char** argv).
#define OSTREL_TEST_CHILD(function) static const bool isChildAdded = addRun({#function, function});

#endif
