// The escapes of an `escaped` section, in both directions.
#include "Escapes.h"

#include <cstdio>
#include <stdexcept>

namespace harness {

namespace {

void appendUtf8(std::string& text, const unsigned long scalar) {
  const auto byte = [&text](const unsigned long bits) { text += static_cast<char>(bits); };
  if (scalar < 0x80) {
    byte(scalar);
  } else if (scalar < 0x800) {
    byte(0xC0 | scalar >> 6);
    byte(0x80 | (scalar & 0x3F));
  } else if (scalar < 0x10000) {
    byte(0xE0 | scalar >> 12);
    byte(0x80 | (scalar >> 6 & 0x3F));
    byte(0x80 | (scalar & 0x3F));
  } else {
    byte(0xF0 | scalar >> 18);
    byte(0x80 | (scalar >> 12 & 0x3F));
    byte(0x80 | (scalar >> 6 & 0x3F));
    byte(0x80 | (scalar & 0x3F));
  }
}

/// `position` stands behind the "u"; gives the position behind the closing brace.
std::size_t appendScalar(std::string& result, const std::string_view text, const std::size_t position) {
  const std::size_t close = text.find('}', position);
  if (close == std::string_view::npos || text[position] != '{') throw std::runtime_error("\\u needs braces");
  const std::string digits(text.substr(position + 1, close - position - 1));
  appendUtf8(result, std::stoul(digits, nullptr, 16));
  return close + 1;
}

/// `position` stands behind the backslash; gives the position behind the escape.
std::size_t appendEscape(std::string& result, const std::string_view text, const std::size_t position) {
  if (position == text.size()) throw std::runtime_error("a backslash ends the section");
  switch (const char kind = text[position]) {
    case '\n':
      break;
    case 'n':
      result += '\n';
      break;
    case 'r':
      result += '\r';
      break;
    case 't':
      result += '\t';
      break;
    case '0':
      result += '\0';
      break;
    case '\\':
    case '-':
      result += kind;
      break;
    case 'u':
      return appendScalar(result, text, position + 1);
    case 'x':
      result += static_cast<char>(std::stoi(std::string(text.substr(position + 1, 2)), nullptr, 16));
      return position + 3;
    default:
      throw std::runtime_error(std::string("unknown escape \\") + kind);
  }
  return position + 1;
}

bool isControl(const char character) {
  return static_cast<unsigned char>(character) < 0x20 || character == 0x7F;
}

}  // namespace

std::string unescape(const std::string_view text) {
  std::string result;
  for (std::size_t position = 0; position < text.size();) {
    if (text[position] == '\\') {
      position = appendEscape(result, text, position + 1);
    } else {
      result += text[position++];
    }
  }
  return result;
}

std::string escape(const std::string_view text) {
  std::string result;
  for (std::size_t position = 0; position < text.size(); position++) {
    const char character = text[position];
    const bool startsLine = position == 0 || text[position - 1] == '\n';
    if (character == '\n') {
      result += '\n';
    } else if (character == '\\') {
      result += "\\\\";
    } else if (character == '-' && startsLine) {
      result += "\\-";
    } else if (character == '\r') {
      result += "\\r";
    } else if (character == '\t') {
      result += "\\t";
    } else if (isControl(character)) {
      char code[8];
      std::snprintf(code, sizeof code, "\\x%02X", static_cast<unsigned char>(character));
      result += code;
    } else {
      result += character;
    }
  }
  if (!text.empty() && text.back() != '\n') result += "\\\n";
  return result;
}

bool isPlain(const std::string_view text) {
  for (const char character : text) {
    if (isControl(character) && character != '\n') return false;
  }
  return !text.starts_with("--- ") && text.find("\n--- ") == std::string_view::npos;
}

}  // namespace harness
