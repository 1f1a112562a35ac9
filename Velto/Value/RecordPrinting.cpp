// Which records are being printed.
#include <utility>

#include "Velto/Platform/StackGuard.h"
#include "Velto/Value/HostObject.h"

namespace velto {

namespace {

/// The printings of this thread, one within the other. The texts of records pass through code of the host, which hands
/// nothing on.
thread_local constinit const RecordPrinting* innermost = nullptr;

}  // namespace

RecordPrinting::RecordPrinting(const void* record, const std::type_info& type) noexcept
    : record_(record),
      type_(type),
      outer_(std::exchange(innermost, this)),
      mayGoOn_(!isInProgress() && !StackGuard().isExhausted()) {
}

RecordPrinting::~RecordPrinting() {
  innermost = outer_;
}

bool RecordPrinting::isInProgress() const noexcept {
  const RecordPrinting* printing = outer_;
  while (printing && (printing->record_ != record_ || printing->type_ != type_)) printing = printing->outer_;
  return printing != nullptr;
}

}  // namespace velto
