#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// The text of one or more command lines together with the bounds of the pieces that it was put together
/// from. The text alone is what stands in a batch file; CommandInterpreter gets both, so that a piece from
/// outside can never be read as anything but part of its one argument. Bytes, UTF-8 where they are text.
class CommandText {
 public:
    enum class Origin {
        Literal,  ///< text of the program: quotes, blanks and redirections mean what they say
        Typed,    ///< typed by the user: read like a literal
        Outside,  ///< a path, or a value read out of a file: always stays inside the argument it was put in
    };

    struct Piece {
        std::size_t begin;  ///< first byte in text()
        std::size_t end;    ///< one past the last byte
        Origin origin;
    };

    CommandText() = default;
    /// One literal.
    explicit CommandText(std::string_view literalText) { literal(literalText); }

    CommandText& literal(std::string_view bytes) { return append(bytes, Origin::Literal); }
    CommandText& typed(std::string_view bytes) { return append(bytes, Origin::Typed); }
    CommandText& outside(std::string_view bytes) { return append(bytes, Origin::Outside); }
    /// All pieces of the other text, with their origins.
    CommandText& append(const CommandText& other);

    const std::string& text() const { return text_; }
    const std::vector<Piece>& pieces() const { return pieces_; }
    bool empty() const { return text_.empty(); }

 private:
    CommandText& append(std::string_view bytes, Origin origin);

    std::string text_;
    std::vector<Piece> pieces_;
};

}  // namespace platform
