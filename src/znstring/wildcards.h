#pragma once

#include <atomic>

/// The order numbers by which comparison recognises wildcards, in whatever code set they stand.
///
/// They are process-wide, and 0 until they are first asked for: then they are the orders of `*`,
/// `?` and `\` in code set 1. Two threads may fill them at once, with the same number. The escape
/// is kept for callers; no comparison reads it.

namespace zntms {

class WildcardOrder {
public:
  constexpr explicit WildcardOrder(unsigned char character) : character_(character) {}
  unsigned short Get() {
    unsigned short const order = order_.load(std::memory_order_relaxed);
    return order != 0 ? order : Fill();
  }
  void Set(unsigned short order) { order_.store(order, std::memory_order_relaxed); }

private:
  unsigned short Fill();

  std::atomic<unsigned short> order_ = 0;
  unsigned char character_; ///< in code set 1
};

extern constinit WildcardOrder asteriskOrder;
extern constinit WildcardOrder questionOrder;
extern constinit WildcardOrder escapeOrder;

} // namespace zntms
