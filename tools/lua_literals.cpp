#include "lua_literals.h"

#include <cctype>
#include <cstdlib>

namespace {

class Scanner {
  public:
    explicit Scanner(std::string_view source) : source_(source) {}

    std::vector<Literal> Scan() {
        while (at_ < source_.size()) Next();
        return std::move(found_);
    }

  private:
    char Here(std::size_t ahead = 0) const { return at_ + ahead < source_.size() ? source_[at_ + ahead] : '\0'; }

    static bool IsDigit(char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; }
    static bool IsWord(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_'; }

    void Next() {
        if (source_.substr(at_).starts_with("--")) return Comment();
        const bool number = IsDigit(Here()) || (Here() == '.' && IsDigit(Here(1)));
        if (number) return Number();
        if (IsWord(Here())) return Word();
        if (Here() == '"' || Here() == '\'') return Text();
        if (Here() == '[' && LongBracket(at_) != std::string_view::npos) return To(LongBracket(at_));
        if (Here() == '}') found_.push_back({Literal::Kind::tableEnd, at_, at_ + 1, line_, 0, false});
        Symbol();
    }

    // Moves on, counting lines.
    void To(std::size_t end) {
        for (; at_ < end && at_ < source_.size(); ++at_) line_ += source_[at_] == '\n';
        before_ = Before::value;
    }

    // Behind the text in long brackets that begins there; npos: none does.
    std::size_t LongBracket(std::size_t start) const {
        std::size_t level = start + 1;
        while (level < source_.size() && source_[level] == '=') ++level;
        if (level >= source_.size() || source_[start] != '[' || source_[level] != '[') return std::string_view::npos;
        const std::string end = "]" + std::string(level - start - 1, '=') + "]";
        const std::size_t found = source_.find(end, level);
        return found == std::string_view::npos ? source_.size() : found + end.size();
    }

    void Comment() {
        const Before before = before_;
        std::size_t end = at_ + 2 < source_.size() ? LongBracket(at_ + 2) : std::string_view::npos;
        if (end == std::string_view::npos) end = std::min(source_.find('\n', at_), source_.size());
        To(end);
        before_ = before;
    }

    void Number() {
        const std::size_t start = before_ == Before::sign ? at_ - 1 : at_;
        std::size_t end = at_;
        const auto exponentSign = [&] {
            const char e = source_[end - 1];
            return (source_[end] == '-' || source_[end] == '+') && (e == 'e' || e == 'E');
        };
        while (end < source_.size() && (IsWord(source_[end]) || source_[end] == '.' || exponentSign())) ++end;
        const double value = std::strtod(std::string(source_.substr(start, end - start)).c_str(), nullptr);
        found_.push_back({Literal::Kind::number, start, end, line_, value, before_ == Before::minus});
        To(end);
    }

    void Word() {
        std::size_t end = at_;
        while (end < source_.size() && IsWord(source_[end])) ++end;
        const std::string_view word = source_.substr(at_, end - at_);
        To(end);
        for (const char* opens : {"and", "or", "not", "return", "do", "then", "else", "in", "until"}) {
            if (word == opens) before_ = Before::nothing;
        }
    }

    void Text() {
        std::size_t end = at_ + 1;
        while (end < source_.size() && source_[end] != source_[at_]) end += source_[end] == '\\' ? 2 : 1;
        end = std::min(end + 1, source_.size());
        found_.push_back({Literal::Kind::text, at_, end, line_, 0, false});
        To(end);
    }

    void Symbol() {
        const char c = Here();
        const Before before = before_;
        To(at_ + 1);
        if (std::isspace(static_cast<unsigned char>(c)) != 0) {
            before_ = before == Before::sign ? Before::nothing : before;
        } else if (c == '-') {
            before_ = before == Before::value ? Before::minus : Before::sign;
        } else if (c != ')' && c != ']' && c != '}') {
            before_ = Before::nothing;
        }
    }

    // What stands before the place: it tells a sign from a minus.
    enum class Before { nothing, value, minus, sign } before_ = Before::nothing;
    std::string_view source_;
    std::size_t at_ = 0;
    int line_ = 1;
    std::vector<Literal> found_;
};

}  // namespace

std::vector<Literal> LiteralsOf(std::string_view source) {
    return Scanner(source).Scan();
}
