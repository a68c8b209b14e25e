#include "expression.h"

#include <cctype>

#include "functions.h"
#include "suggestion.h"

namespace ostrelcell {

namespace {

bool startsName(char c) {
    return std::isalpha(static_cast<unsigned char>(c)) != 0 || c == '_';
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool continuesName(char c) {
    return startsName(c) || isDigit(c);
}

class Translator {
public:
    Translator(const std::string& text, const ExpressionNames& names) : m_text(text), m_names(names) {}

    std::string run();

private:
    struct Bracket {
        const FunctionInfo* function;  // null for a plain bracket
        int arguments;
        bool empty;
    };

    const std::string& m_text;
    const ExpressionNames& m_names;
    size_t m_at = 0;
    std::string m_result;
    std::vector<Bracket> m_brackets;

    char at(size_t position) const { return position < m_text.size() ? m_text[position] : '\0'; }
    std::string takeWhile(bool (*wanted)(char));
    void skipBlanks();
    void element();
    void number();
    void word();
    void name(std::string fullName);
    void call(const std::string& function);
    void namedCall(const std::string& function);
    std::string indexes();
    void symbol();
    void comma();
    void close();
    void used();
};

[[noreturn]] void fail(const std::string& reason) {
    throw ExpressionError(reason);
}

std::string Translator::run() {
    while (m_at < m_text.size())
        element();
    if (!m_brackets.empty())
        fail("a bracket is not closed");
    return m_result;
}

std::string Translator::takeWhile(bool (*wanted)(char)) {
    const size_t start = m_at;
    while (m_at < m_text.size() && wanted(m_text[m_at]))
        ++m_at;
    return m_text.substr(start, m_at - start);
}

void Translator::skipBlanks() {
    while (std::isspace(static_cast<unsigned char>(at(m_at))) != 0)
        ++m_at;
}

void Translator::used() {
    if (!m_brackets.empty())
        m_brackets.back().empty = false;
}

void Translator::element() {
    const char c = m_text[m_at];
    if (std::isspace(static_cast<unsigned char>(c)) != 0) {
        skipBlanks();
        m_result += ' ';
    } else if (isDigit(c) || (c == '.' && isDigit(at(m_at + 1)))) {
        number();
    } else if (startsName(c)) {
        word();
    } else {
        symbol();
    }
}

void Translator::number() {
    used();
    const size_t start = m_at;
    m_result += takeWhile([](char c) { return isDigit(c) || c == '.'; });
    const size_t sign = m_at + 1;
    const bool exponent = (at(m_at) == 'e' || at(m_at) == 'E') &&
                          (isDigit(at(sign)) || ((at(sign) == '+' || at(sign) == '-') && isDigit(at(sign + 1))));
    if (exponent) {
        m_result += m_text.substr(m_at, 2);
        m_at += 2;
        m_result += takeWhile(isDigit);
    }
    if (!startsName(at(m_at)))
        return;
    takeWhile(continuesName);
    fail("a number and a name stand together: \"" + m_text.substr(start, m_at - start) + "\"");
}

// `:1`, `:CYL1`, or with an index variable `:i`, as many as there are
std::string Translator::indexes() {
    std::string text;
    while (at(m_at) == ':') {
        ++m_at;
        const std::string index = takeWhile(continuesName);
        const int value = m_names.indexValue(index);
        text += ":" + (value >= 0 ? std::to_string(value) : index);
    }
    return text;
}

void Translator::word() {
    used();
    std::string text = takeWhile(continuesName);
    const size_t end = m_at;
    skipBlanks();
    if (at(m_at) == '(') {
        call(text);
        return;
    }
    m_at = end;
    if (at(m_at) == '.' && (startsName(at(m_at + 1)) || isDigit(at(m_at + 1)))) {
        ++m_at;
        text += "." + takeWhile(continuesName);
    } else if (m_names.is_array(text)) {
        text += indexes();
    }
    name(text);
}

void Translator::name(std::string fullName) {
    const int index = m_names.indexValue(fullName);
    if (index >= 0)
        m_result += std::to_string(index);
    else if (fullName == "t" || fullName == "dt")
        m_result += fullName + "_";
    else if (fullName == "pi")
        m_result += "3.14159265358979324";
    else if (fullName == "true" || fullName == "false")
        m_result += fullName == "true" ? "1" : "0";
    else
        m_result += m_names.identifier(fullName, NameUse::value);
}

// prev(NAME), alarm(NAME)
void Translator::namedCall(const std::string& function) {
    skipBlanks();
    std::string fullName = takeWhile([](char c) { return continuesName(c) || c == '.'; });
    fullName += indexes();
    skipBlanks();
    if (fullName.empty() || at(m_at) != ')')
        fail(function + "() takes the name of a variable");
    ++m_at;
    m_result += m_names.identifier(fullName, function == "prev" ? NameUse::previous : NameUse::alarm);
}

void Translator::call(const std::string& function) {
    const FunctionInfo* info = functionInfo(function);
    if (info == nullptr)
        fail("there is no function " + function + "()" + didYouMean(function, functionNames()));
    ++m_at;
    if (function == "prev" || function == "alarm") {
        namedCall(function);
        return;
    }
    m_result += function + "(";
    if (info->remembers)
        m_result += std::to_string(m_names.new_state()) + ",";
    m_brackets.push_back({info, 1, true});
}

void Translator::comma() {
    if (m_brackets.empty() || m_brackets.back().function == nullptr)
        fail("unexpected comma; decimals are written with a point");
    ++m_brackets.back().arguments;
}

void Translator::close() {
    if (m_brackets.empty())
        fail("a bracket is closed that was not opened");
    const Bracket bracket = m_brackets.back();
    m_brackets.pop_back();
    if (bracket.function == nullptr)
        return;
    const int count = bracket.empty ? 0 : bracket.arguments;
    const FunctionInfo& info = *bracket.function;
    if (std::string(info.name) == "table" && count % 2 == 0)
        fail("table() takes x and pairs of numbers; one has no partner");
    if (count >= info.least && (info.most < 0 || count <= info.most))
        return;
    const std::string wanted = info.most < 0 ? "at least " + std::to_string(info.least)
                               : info.least == info.most
                                   ? std::to_string(info.least)
                                   : std::to_string(info.least) + " to " + std::to_string(info.most);
    fail(std::string(info.name) + "() takes " + wanted + (wanted == "1" ? " argument" : " arguments") + ", not " +
         std::to_string(count));
}

void Translator::symbol() {
    static const std::string pairs[] = {"==", "!=", "<=", ">=", "&&", "||"};
    const std::string two = m_text.substr(m_at, 2);
    for (const std::string& pair : pairs) {
        if (two == pair) {
            used();
            m_result += pair;
            m_at += 2;
            return;
        }
    }
    const char c = m_text[m_at++];
    if (c == ',')
        comma();
    else if (c == ')')
        close();
    else if (c == '=')
        fail("a single \"=\"; equality is written \"==\"");
    else if (std::string("+-*/^<>!?:(").find(c) == std::string::npos)
        fail(std::string("unexpected character \"") + c + "\"");
    else
        used();
    m_result += c;
    if (c == '(')
        m_brackets.push_back({nullptr, 1, true});
}

}  // namespace

std::string translateExpression(const std::string& text, const ExpressionNames& names) {
    return Translator(text, names).run();
}

}  // namespace ostrelcell
