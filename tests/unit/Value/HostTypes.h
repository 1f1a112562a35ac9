// Types of a host outside the library's namespace.
#pragma once

#include <boost/describe/class.hpp>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Velto/Library/Geometry.h"
#include "Velto/Value/HostObject.h"
#include "Velto/Value/NativeFunctions.h"

namespace shop {

struct Person {
  std::string name;
  int age = 0;

  friend bool operator==(const Person&, const Person&) = default;
};
BOOST_DESCRIBE_STRUCT(Person, (), (name, age))

/// With every kind of property that there is.
struct Everything {
  bool flag = true;
  int integer = -3;
  unsigned char small = 200;
  unsigned long long large = 1ull << 63;
  double real = 1.5;
  velto::CGFloat coordinate = 2.5;
  float narrow = 0.5f;
  velto::Value value = 1;
  velto::Ref<const velto::Callable> callable = velto::makeRef<velto::Function0>("f", [] { return velto::Value(); });
  std::pair<int, int> tuple = {1, 2};
  std::optional<int> present = 7;
  std::optional<int> absent;
  std::optional<float> presentFloat = 0.5f;
  Person person = {"Ann", 41};
  std::shared_ptr<Person> shared = std::make_shared<Person>(Person{"Bob", 42});
  std::shared_ptr<Person> nobody;
  velto::CGPoint point = {1, 2};
  std::vector<std::string> names = {"a", "b"};
  std::vector<velto::Value> values = {1, "b"};
  std::vector<int> none;
  std::map<std::string, int> numbers = {{"a", 1}};
  velto::String text = "text";
};
BOOST_DESCRIBE_STRUCT(Everything, (),
                      (flag, integer, small, large, real, coordinate, narrow, value, callable, tuple, present, absent,
                       presentFloat, person, shared, nobody, point, names, values, none, numbers, text))

struct Vehicle {
  int wheels = 4;
};
BOOST_DESCRIBE_STRUCT(Vehicle, (), (wheels))

struct Car : Vehicle {
  int doors = 5;
};
BOOST_DESCRIBE_STRUCT(Car, (Vehicle), (doors))

struct Unit {
  virtual ~Unit() = default;
  int size = 1;
};
BOOST_DESCRIBE_STRUCT(Unit, (), (size))

struct SpecialUnit : Unit {};

/// May refer to itself.
struct Node {
  std::string name;
  std::shared_ptr<Node> next;
};
BOOST_DESCRIBE_STRUCT(Node, (), (name, next))

class Account {
 public:
  explicit Account(int balance) : balance_(balance) {}
  velto::String description() const { return "an account"; }

 private:
  int balance_;
  BOOST_DESCRIBE_CLASS(Account, (), (), (), (balance_))
};

template <typename T>
struct Box {
  T content;

  friend bool operator==(const Box&, const Box&) = default;
};

/// Neither described nor an object.
struct Opaque {};

}  // namespace shop
