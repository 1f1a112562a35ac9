// How the parser makes nodes.
#pragma once

#include "Velto/Parser/NodeMaking.h"
#include "Velto/Parser/Parser.h"
#include "Velto/Parser/StatementNodes.h"

namespace velto {

template <typename Record, typename... Parts>
auto Parser::node(const Parts&... parts) {
  Ref<const Node> packed = makePacked<Record>(parts...);
  if constexpr (ExpressionRecord<Record>) {
    return packed ? Expression(std::move(packed)) : Expression(Record{{}, parts...});
  } else {
    return packed ? Statement(std::move(packed)) : Statement(Record{parts...});
  }
}

template <typename Record, typename First, typename Last, typename... Parts>
auto Parser::nodeSpanning(const First& first, const Last& last, const Parts&... parts) {
  return node<Record>(Stretch(startOf(first), endOf(last)), parts...);
}

}  // namespace velto
