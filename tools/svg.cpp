#include "svg.h"

#include <cmath>
#include <cstdint>
#include <map>
#include <utility>
#include <vector>

#include "author/kind_sprite.h"
#include "toolkit/deflate.h"
#include "toolkit/numbers.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

std::string Number(float value) {
    constexpr float kHundred = 100;
    return TextOf(std::round(value * kHundred) / kHundred);
}

std::string Escaped(const std::string& text) {
    std::string escaped;
    for (const char c : text) {
        if (c == '&') escaped += "&amp;";
        if (c == '<') escaped += "&lt;";
        if (c != '&' && c != '<') escaped += c;
    }
    return escaped;
}

std::string ColorText(Color color) {
    constexpr int kDigits = 6;
    std::string text = "#";
    for (int shift = 4 * (kDigits - 1); shift >= 0; shift -= 4) text += "0123456789abcdef"[color >> shift & 0xF];
    return text;
}

// " fill="#123456" fill-opacity="0.5""
std::string Inked(const std::string& what, const Ink& ink) {
    if (ink.strength <= 0) return " " + what + "=\"none\"";
    const std::string opacity = ink.strength < 1 ? " " + what + "-opacity=\"" + Number(ink.strength) + "\"" : "";
    return " " + what + "=\"" + ColorText(ink.color) + "\"" + opacity;
}

// The checksum of PNG's chunks.
std::uint32_t Crc(const Bytes& bytes) {
    std::uint32_t crc = 0xFFFFFFFF;
    for (const std::uint8_t byte : bytes) {
        crc ^= byte;
        for (int bit = 0; bit < 8; ++bit) crc = crc >> 1 ^ (crc & 1 ? 0xEDB88320 : 0);
    }
    return ~crc;
}

void AddLong(Bytes& bytes, std::uint32_t value) {
    for (const int shift : {24, 16, 8, 0}) bytes.push_back(static_cast<std::uint8_t>(value >> shift));
}

void AddChunk(Bytes& png, const std::string& type, const Bytes& data) {
    Bytes chunk(type.begin(), type.end());
    chunk.insert(chunk.end(), data.begin(), data.end());
    AddLong(png, static_cast<std::uint32_t>(data.size()));
    png.insert(png.end(), chunk.begin(), chunk.end());
    AddLong(png, Crc(chunk));
}

// Pixels as KindSprite gives them.
Bytes PngOf(const Picture& picture) {
    Bytes head, rows;
    AddLong(head, static_cast<std::uint32_t>(picture.width));
    AddLong(head, static_cast<std::uint32_t>(picture.height));
    head.insert(head.end(), {8, 6, 0, 0, 0});  // bits, with transparency, usual packing
    for (std::size_t i = 0; i < picture.pixels.size(); ++i) {
        if (i % static_cast<std::size_t>(picture.width) == 0) rows.push_back(0);  // each row as it stands
        const Color pixel = picture.pixels[i];
        for (const int shift : {16, 8, 0, 24}) rows.push_back(static_cast<std::uint8_t>(pixel >> shift));
    }
    Bytes png = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    AddChunk(png, "IHDR", head);
    AddChunk(png, "IDAT", Deflate(rows));
    AddChunk(png, "IEND", {});
    return png;
}

std::string Base64(const Bytes& bytes) {
    constexpr const char* kLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        std::uint32_t three = 0;
        for (std::size_t k = 0; k < 3; ++k) three = three << 8 | (i + k < bytes.size() ? bytes[i + k] : 0U);
        for (std::size_t k = 0; k < 4; ++k) text += i + k > bytes.size() ? '=' : kLetters[three >> (18 - 6 * k) & 0x3F];
    }
    return text;
}

class Writer {
  public:
    Writer(const Drawing& drawing, float scale) : corner_(drawing.corner), scale_(scale) {}

    void operator()(const DrawnLine& line) {
        body_ += "<polyline fill=\"none\" points=\"";
        for (const DrawnPoint& point : line.points) body_ += Number(X(point)) + "," + Number(Y(point)) + " ";
        body_ += "\"" + Inked("stroke", line.ink) + " stroke-width=\"" + Number(line.width) + "\"" +
                 Dashed(line.dashed) + "/>\n";
    }
    void operator()(const DrawnBox& box) {
        body_ += "<rect" + Place(box.corner) + " width=\"" + Number(box.width * scale_) + "\" height=\"" +
                 Number(box.height * scale_) + "\"" + Inked("fill", box.fill) + Inked("stroke", box.edge) +
                 Dashed(box.dashed) + "/>\n";
    }
    void operator()(const DrawnDot& dot) {
        body_ += "<circle cx=\"" + Number(X(dot.middle)) + "\" cy=\"" + Number(Y(dot.middle)) + "\" r=\"" +
                 Number(dot.radius) + "\"" + Inked("fill", dot.hollow ? Ink{kBlack, 0} : dot.ink) +
                 (dot.hollow ? Inked("stroke", dot.ink) + " stroke-width=\"1.6\"" : "") + "/>\n";
    }
    void operator()(const DrawnText& text) {
        body_ += "<text" + Place(text.place) + Inked("fill", text.ink) + (text.small ? " font-size=\"10\"" : "") + ">" +
                 Escaped(text.text) + "</text>\n";
    }
    void operator()(const DrawnSprite& sprite) {
        const std::string name = SpriteName(sprite);
        if (name.empty()) return;
        const std::string strength = sprite.strength < 1 ? " opacity=\"" + Number(sprite.strength) + "\"" : "";
        body_ += "<use href=\"#" + name + "\"" + Place(sprite.corner) + strength + "/>\n";
    }

    std::string Text(float width, float height) const {
        const std::string w = Number(width * scale_), h = Number(height * scale_);
        return "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + w + "\" height=\"" + h + "\" viewBox=\"0 0 " + w +
               " " + h +
               "\" font-family=\"sans-serif\" font-size=\"12\" font-weight=\"bold\">\n"
               "<style>text { dominant-baseline: central; paint-order: stroke; stroke: #050710; stroke-width: 2px }"
               "</style>\n<defs>\n" +
               sprites_ + "</defs>\n" + body_ + "</svg>\n";
    }

  private:
    float X(const DrawnPoint& point) const { return (point.x - corner_.x) * scale_; }
    float Y(const DrawnPoint& point) const { return (point.y - corner_.y) * scale_; }
    std::string Place(const DrawnPoint& point) const {
        return " x=\"" + Number(X(point)) + "\" y=\"" + Number(Y(point)) + "\"";
    }
    static std::string Dashed(bool dashed) { return dashed ? " stroke-dasharray=\"4 3\"" : ""; }

    // Each picture stands in the file once. Empty: the sprite has none.
    std::string SpriteName(const DrawnSprite& sprite) {
        std::string name = "k" + std::to_string(sprite.number) + "-" + std::to_string(sprite.frame);
        const auto [known, isNew] = names_.try_emplace({sprite.number, sprite.frame}, name);
        if (!isNew) return known->second;
        const Picture picture = KindSprite(sprite.kind, sprite.number, sprite.frame);
        if (picture.pixels.empty()) return known->second = "";
        sprites_ += "<image id=\"" + name + "\" width=\"" + Number(static_cast<float>(picture.width) * scale_) +
                    "\" height=\"" + Number(static_cast<float>(picture.height) * scale_) +
                    "\" style=\"image-rendering: pixelated\" href=\"data:image/png;base64," + Base64(PngOf(picture)) +
                    "\"/>\n";
        return name;
    }

    DrawnPoint corner_;
    float scale_;
    std::map<std::pair<int, int>, std::string> names_;  // by kind and frame
    std::string sprites_, body_;
};

}  // namespace

std::string SvgOf(const Drawing& drawing, float scale) {
    Writer writer(drawing, scale);
    for (const Shape& shape : drawing.shapes) std::visit(writer, shape);
    return writer.Text(drawing.width, drawing.height);
}
