#include "selection/simpletokenizer.h"

#include <utility>

SimpleTokenizer::SimpleTokenizer(QString stringlist) {
    setString(std::move(stringlist));
}

void SimpleTokenizer::setString(QString text) {
    string = std::move(text);
    length = string.size();
    currentPosition = 0;
    startDelimiter = QChar();
}

void SimpleTokenizer::setRetainQuotes(bool retain) {
    retainQuotes = retain;
}

bool SimpleTokenizer::isBlankAt(int position) const {
    const QChar c = string.at(position);
    return c == QLatin1Char(' ') || c == QLatin1Char('\t');
}

// Where the character stands that ends the word, or the end of the text.
int SimpleTokenizer::endOfWord(int start) const {
    int end = start + 1;
    if (!startDelimiter.isNull())
        while (end < length && string.at(end) != startDelimiter)
            ++end;
    else
        while (end < length && !isBlankAt(end) && string.at(end) != QLatin1Char(','))
            ++end;
    return end;
}

QString SimpleTokenizer::nextToken() {
    if (currentPosition >= length)
        return QString();
    while (currentPosition < length && isBlankAt(currentPosition))
        ++currentPosition;
    if (currentPosition >= length)
        return QString();

    const int start = currentPosition;
    const QChar first = string.at(start);
    const bool isQuoted = first == QLatin1Char('"') || first == QLatin1Char('\'');
    startDelimiter = isQuoted ? first : QChar();
    const int end = endOfWord(start);
    currentPosition = end + 1;
    if (!isQuoted)
        return string.mid(start, end - start);

    // Of the characters behind a closing quote only a comma that follows at once belongs to the word.
    if (currentPosition < length && string.at(currentPosition) == QLatin1Char(','))
        ++currentPosition;
    return retainQuotes ? string.mid(start, end + 1 - start) : string.mid(start + 1, end - start - 1);
}
