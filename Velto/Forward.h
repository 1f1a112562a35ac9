// Every type of the library by name, for headers that need no more than the name.
#pragma once

#include <cstdint>

// Symbols are hidden unless their header exports them. Classes take the visibility of the namespace; free functions say
// it for themselves, since compilers differ on whether a definition elsewhere takes it, too.
namespace [[gnu::visibility("default")]] velto {

/// The integer of the whole interface: lines, columns, counts and indices.
using Int = std::int64_t;

// Platform
class Character;
class FileHandle;
class FileSystem;
class String;
class StringBuilder;
class TextPool;
class Url;
class Uuid;

// Diagnostics
struct Cursor;
struct Range;
class Message;
class Logger;
class VeltoError;

// Value
class Arguments;
class Array;
class Callable;
class CountableClosedRange;
class CountableRange;
class Dictionary;
class HostValue;
class MetaType;
class Object;
class ReportError;
class Value;

// Scanner
enum class TokenType : std::uint8_t;
struct Token;
class Scanner;
class Unpacker;

// Parser
class Expression;
class ExpressionVisitor;
struct CallArgument;
struct CaseParts;
class Parser;
class Statement;
class StatementVisitor;

// Interpreter, Library, Processor
class Environment;
class Function;
class Interpreter;
class Library;
class ParseCache;
class Processor;
class Resolver;

}  // namespace velto
