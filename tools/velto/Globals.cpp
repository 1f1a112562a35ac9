// The globals that the command line defines.
#include "Globals.h"

#include <stdexcept>

#include "Outcome.h"

namespace command {
namespace {

using velto::Value;

std::pair<std::string, std::string> split(const std::string& argument, const char* form) {
  const std::size_t sign = argument.find('=');
  if (sign == 0 || sign == argument.npos) {
    throw std::invalid_argument("expected " + std::string(form) + ", got '" + argument + "'");
  }
  return {argument.substr(0, sign), argument.substr(sign + 1)};
}

Value read(const std::string& path) {
  try {
    const std::optional<Value> document = velto::parseJSON(velto::FileSystem::local()->readBytes(velto::Url(path)));
    if (!document) throw cannotRead(path, "invalid JSON");
    return *document;
  } catch (const velto::FileError& error) {
    throw cannotRead(path, error.what());
  }
}

void addKeys(const std::string& path, Globals& globals) {
  const Value document = read(path);
  if (!document.dictionary()) throw cannotRead(path, "not a JSON object");
  for (const auto& [key, value] : document.dictionary()->entries()) globals.emplace_back(*key.string(), value);
}

}  // namespace

void GlobalOptions::addText(const std::string& nameAndText) {
  const auto [name, text] = split(nameAndText, "NAME=TEXT");
  options_.push_back({name, Value(text)});
}

void GlobalOptions::addJson(const std::string& nameAndJson) {
  const auto [name, document] = split(nameAndJson, "NAME=JSON");
  const std::optional<Value> value = velto::parseJSON(document);
  if (!value) throw std::invalid_argument("invalid JSON for '" + name + "'");
  options_.push_back({name, *value});
}

void GlobalOptions::addData(const std::string& nameAndFile) {
  const auto [name, path] = split(nameAndFile, "NAME=FILE");
  options_.push_back({name, DataFile{path}});
}

void GlobalOptions::addDataOrKeys(const std::string& argument) {
  if (argument.find('=') != argument.npos) return addData(argument);
  options_.push_back({std::nullopt, DataFile{argument}});
}

Globals GlobalOptions::load() const {
  Globals globals;
  for (const auto& [name, source] : options_) {
    const DataFile* const file = std::get_if<DataFile>(&source);
    if (!name) {
      addKeys(file->path, globals);
    } else {
      globals.emplace_back(*name, file ? read(file->path) : std::get<Value>(source));
    }
  }
  return globals;
}

}  // namespace command
