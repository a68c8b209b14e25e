// Cutting a command line into its words.
#include "selection/simpletokenizer.h"

#include <QStringList>
#include <QTest>

#include "qttests.h"

namespace {

QStringList wordsOf(SimpleTokenizer* tokenizer) {
    QStringList words;
    for (QString word = tokenizer->nextToken(); !word.isNull(); word = tokenizer->nextToken())
        words.append(word);
    return words;
}

}  // namespace

class SimpleTokenizerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void wordsAreCut_data();
    void wordsAreCut();
    void withoutATextThereIsNoWord();
    void theEndIsNull();
    void aWordOfNothingIsNotTheEnd();
    void anotherTextBeginsAnew();
    void keepingQuotesOutlivesTheText();
};

void SimpleTokenizerTest::wordsAreCut_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<QStringList>("withQuotes");
    const auto row = [](const char* name, const char* text, const QStringList& words, const QStringList& withQuotes) {
        QTest::newRow(name) << QString::fromUtf8(text) << words << withQuotes;
    };
    const auto same = [&](const char* name, const char* text, const QStringList& words) {
        row(name, text, words, words);
    };
    same("nothing", "", {});
    same("blanks and tabs alone", " \t ", {});
    same("blanks before words", "  a  b", {"a", "b"});
    same("blanks behind words", "a \t", {"a"});
    same("a comma", "a,b", {"a", "b"});
    same("a comma and a blank", "a, b", {"a", "b"});
    same("a comma at the end", "a,", {"a"});
    same("two commas", "a,,b", {"a", ",b"});
    same("a comma alone", ",", {","});
    same("commas alone", ",,,", {",", ","});
    same("a line feed is no blank", "a\nb", {"a\nb"});
    same("a quote inside a word", "a'b c'", {"a'b", "c'"});
    same("letters beyond ASCII", "\xC3\xA4 \xE2\x82\xAC",
         {QString::fromUtf8("\xC3\xA4"), QString::fromUtf8("\xE2\x82\xAC")});
    row("double quotes", "\"a b\" c", {"a b", "c"}, {"\"a b\"", "c"});
    row("single quotes", "'a b' c", {"a b", "c"}, {"'a b'", "c"});
    row("the other quote inside", "'a \"b' c", {"a \"b", "c"}, {"'a \"b'", "c"});
    row("a comma inside", "\"a,b\"", {"a,b"}, {"\"a,b\""});
    row("no escape", "\"a\\\"b", {"a\\", "b"}, {"\"a\\\"", "b"});
    row("a quoted word and a comma", "\"a\",c", {"a", "c"}, {"\"a\"", "c"});
    row("a quoted word and two commas", "\"a\",,c", {"a", ",c"}, {"\"a\"", ",c"});
    row("a blank between quote and comma", "\"a\" ,c", {"a", ",c"}, {"\"a\"", ",c"});
    row("a quoted word and another at once", "\"a\"'b'", {"a", "b"}, {"\"a\"", "'b'"});
    row("a quoted word and letters at once", "\"a\"b", {"a", "b"}, {"\"a\"", "b"});
    row("no closing quote", "x \"a b", {"x", "a b"}, {"x", "\"a b"});
    row("quotes around nothing", "'' b", {"", "b"}, {"''", "b"});
    row("a quote alone", "\"", {""}, {"\""});
}

void SimpleTokenizerTest::wordsAreCut() {
    QFETCH(QString, text);
    QFETCH(QStringList, words);
    QFETCH(QStringList, withQuotes);
    SimpleTokenizer tokenizer(text);
    QCOMPARE(wordsOf(&tokenizer), words);
    tokenizer.setRetainQuotes(true);
    tokenizer.setString(text);
    QCOMPARE(wordsOf(&tokenizer), withQuotes);
}

void SimpleTokenizerTest::withoutATextThereIsNoWord() {
    SimpleTokenizer tokenizer;
    QVERIFY(tokenizer.nextToken().isNull());
    tokenizer.setString("a");
    QCOMPARE(tokenizer.nextToken(), QString("a"));
}

void SimpleTokenizerTest::theEndIsNull() {
    SimpleTokenizer tokenizer("a");
    QCOMPARE(tokenizer.nextToken(), QString("a"));
    QVERIFY(tokenizer.nextToken().isNull());
    QVERIFY(tokenizer.nextToken().isNull());
}

void SimpleTokenizerTest::aWordOfNothingIsNotTheEnd() {
    SimpleTokenizer tokenizer("\"");
    const QString word = tokenizer.nextToken();
    QVERIFY(word.isEmpty() && !word.isNull());
    QVERIFY(tokenizer.nextToken().isNull());
}

void SimpleTokenizerTest::anotherTextBeginsAnew() {
    SimpleTokenizer tokenizer("a b c");
    tokenizer.nextToken();
    tokenizer.setString("x");
    QCOMPARE(wordsOf(&tokenizer), QStringList({"x"}));
    tokenizer.setString("");
    QVERIFY(tokenizer.nextToken().isNull());
}

void SimpleTokenizerTest::keepingQuotesOutlivesTheText() {
    SimpleTokenizer tokenizer("'a'");
    tokenizer.setRetainQuotes(true);
    QCOMPARE(tokenizer.nextToken(), QString("'a'"));
    tokenizer.setString("'b'");
    QCOMPARE(tokenizer.nextToken(), QString("'b'"));
    tokenizer.setRetainQuotes(false);
    tokenizer.setString("'b'");
    QCOMPARE(tokenizer.nextToken(), QString("b"));
}

OSTREL_TEST_WITHOUT_SCREEN(SimpleTokenizerTest)
#include "simpletokenizer_test.moc"
