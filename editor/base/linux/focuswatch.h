// Watches where the keyboard goes: the toolkit does not.
#pragma once

#include <chrono>
#include <memory>
#include <optional>

#include "editor/base/linux/ownconnection.h"

// Of one window.
class FocusWatch final : public FocusListener {
 public:
  explicit FocusWatch(std::shared_ptr<OwnConnection> shared);
  ~FocusWatch();
  FocusWatch(const FocusWatch&) = delete;
  FocusWatch& operator=(const FocusWatch&) = delete;

  void watch(xcb_window_t window) noexcept { connection->listen(this, window); }
  bool lost();  // since the last question
  void focusChanged(const xcb_focus_in_event_t& event) override;

 private:
  using Clock = std::chrono::steady_clock;

  std::shared_ptr<OwnConnection> connection;
  bool gone = false;
  std::optional<Clock::time_point> lostToAncestor;
};
