// Reads JSON front to back and keeps nothing: the caller takes the members that it wants and skips
// the rest. An export may be as large as a disk holds, most of it of no use to a diary, and a small
// archive may unpack to millions of empty lists; a tree of all that would be many times its size.
//
// Kinds are strict, so a caller asks for the kind before it takes a value: "1" is no number, and 1
// no boolean. Whatever isn't JSON (RFC 8259) throws.
#pragma once

#include <QtCore/QByteArrayView>
#include <QtCore/QString>
#include <exception>
#include <optional>

namespace diary {

class JsonError : public std::exception {
public:
    [[nodiscard]] const char* what() const noexcept override { return "not JSON"; }
};

// Over UTF-8 bytes that live as long as the cursor. Every operation throws JsonError where the text
// isn't JSON, or where values nest deeper than kMaxDepth.
class JsonCursor {
public:
    enum class Kind { Object, Array, String, Number, Boolean, Null };

    static constexpr int kMaxDepth = 1000;

    // Checks that the bytes are UTF-8. A byte order mark ahead of the text is passed over.
    explicit JsonCursor(QByteArrayView utf8);

    // The kind of the value that comes next.
    [[nodiscard]] Kind kind();

    // Take the value that comes next, which must be of the kind. A lone surrogate in a text becomes
    // U+FFFD; a number beyond the range of a double is infinite.
    [[nodiscard]] QString takeString();
    [[nodiscard]] double takeNumber();
    [[nodiscard]] bool takeBoolean();

    // Passes over the value that comes next, checking it.
    void skip();

    // Whether the value that comes next is of the kind; passes over it if it isn't.
    [[nodiscard]] bool skipUnless(Kind expected);

    // The value that comes next, taken; absent and passed over if it is of another kind.
    [[nodiscard]] std::optional<QString> optionalString();
    [[nodiscard]] std::optional<double> optionalNumber();
    [[nodiscard]] std::optional<bool> optionalBoolean();
    // Likewise for a number without a fraction, 3.0 among them, that 64 bits hold.
    [[nodiscard]] std::optional<qint64> optionalInteger();
    // The number of elements of the array that comes next, which is passed over; 0 if it is none.
    [[nodiscard]] int elementCount();

    // Calls `member(key)` for each member of the object that comes next; each call must take or
    // skip exactly one value.
    template <typename Member>
    void eachMember(Member member) {
        enter('{');
        for (bool isFirst = true; nextItem('}', isFirst); isFirst = false) {
            const QString key = takeString();
            expect(':');
            member(key);
        }
        leave();
    }

    // Calls `element()` for each element of the array that comes next, likewise.
    template <typename Element>
    void eachElement(Element element) {
        enter('[');
        for (bool isFirst = true; nextItem(']', isFirst); isFirst = false) element();
        leave();
    }

    // Checks that nothing but white space follows.
    void finish();

private:
    void skipWhiteSpace();
    [[nodiscard]] char next();
    void expect(char character);
    void enter(char opening);
    void leave() { --m_depth; }
    // Whether another item follows; takes the comma ahead of it, or else the closing bracket.
    [[nodiscard]] bool nextItem(char closing, bool isFirst);
    void skipString();
    void appendEscape(QString& text);
    [[nodiscard]] char16_t takeHexUnit();
    [[nodiscard]] QByteArrayView takeNumberText();
    void takeDigits();
    void takeWord(QByteArrayView word);

    const char* m_at;
    const char* m_end;
    int m_depth = 0;
};

}  // namespace diary
