// Cuts a command line into its words.
#ifndef OSTREL_SELECTION_SIMPLETOKENIZER_H
#define OSTREL_SELECTION_SIMPLETOKENIZER_H

#include <QChar>
#include <QString>

// Blanks, tabs and commas end a word; single and double quotes hold one together, and nothing escapes a quote inside.
// The first character of a word is never taken for its end: "a,,b" has the words "a" and ",b".
class Q_DECL_EXPORT SimpleTokenizer {
public:
    // Has no words until setString().
    SimpleTokenizer() = default;
    explicit SimpleTokenizer(QString stringlist);

    // Begins anew with another text.
    void setString(QString text);
    // Whether a word in quotes keeps them; at first it does not.
    void setRetainQuotes(bool retain);

    // The next word; empty for a pair of quotes with nothing inside, null when there are no more.
    QString nextToken();

private:
    bool isBlankAt(int position) const;
    int endOfWord(int start) const;

    static constexpr int nowhere = -99;

    bool retainQuotes = false;
    int currentPosition = nowhere;  // where the search for the next word starts
    int length = nowhere;
    QString string;
    QChar startDelimiter;  // the quote of the latest word, or null
};

#endif
