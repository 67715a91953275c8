#include "platform/CommandText.h"

namespace platform {

CommandText& CommandText::append(std::string_view bytes, Origin origin) {
    if (bytes.empty()) return *this;
    pieces_.push_back({text_.size(), text_.size() + bytes.size(), origin});
    text_ += bytes;
    return *this;
}

CommandText& CommandText::append(const CommandText& other) {
    const std::size_t shift = text_.size();
    pieces_.reserve(pieces_.size() + other.pieces_.size());
    for (const Piece& piece : other.pieces_)
        pieces_.push_back({piece.begin + shift, piece.end + shift, piece.origin});
    text_ += other.text_;
    return *this;
}

}  // namespace platform
