// Sources of any size for the benchmarks.
#pragma once

#include <string>

namespace velto::benchmarks {

/// Lines of text, without a tag, of at least `size` bytes.
inline std::string plainText(std::size_t size) {
  std::string text;
  while (text.size() < size) text += "A line of plain text, with a < here and a > there, 100 % ordinary.\n";
  return text;
}

/// The same beyond ASCII.
inline std::string greekText(std::size_t size) {
  std::string text;
  while (text.size() < size) text += "Μια γραμμή απλού κειμένου, χωρίς τίποτα ιδιαίτερο μέσα της.\n";
  return text;
}

/// A template with a tag in every line.
inline std::string taggedText(std::size_t size) {
  std::string text;
  while (text.size() < size) text += "  name: <%= entity[\"name\"].snakeCased() %>, <% if last -%> end <% end %>\n";
  return text;
}

/// A program of functions, loops and expressions.
inline std::string program(std::size_t size) {
  std::string text;
  for (int index = 0; text.size() < size; ++index) {
    text += "func f" + std::to_string(index) +
            "(_ a, with b) if a < b && b != 0 return [a: \"\\(a + 1) of \\(b)\"] end for i in 0..<10 b = b * 2 - i end "
            "return g(a, x: [1, 2, 3])[0].name end\n";
  }
  return text;
}

}  // namespace velto::benchmarks
