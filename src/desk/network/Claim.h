#pragma once

#include <string>

namespace korvane {

/// A name that one program of this machine's network holds at a time, until it ends, however it
/// ends. Programs claim the places that they send to, so that two on one universe can be told.
class Claim {
 public:
  Claim() = default;
  explicit Claim(const std::string& name);
  ~Claim();
  Claim(Claim&& other) noexcept;
  Claim& operator=(Claim&& other) noexcept;

  /// Whether this claim holds the name.
  bool held() const { return socket_ >= 0; }
  /// Who held the name when this claim was made, as in "korvane-play (process 4711)"; empty if this
  /// claim holds it.
  const std::string& holder() const { return holder_; }

 private:
  int socket_ = -1;
  std::string holder_;
};

}  // namespace korvane
