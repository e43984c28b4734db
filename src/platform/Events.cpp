#include "platform/Events.h"

#include <exception>
#include <new>
#include <stdexcept>

namespace korvane {

bool runEvent(Platform& platform, const std::function<void()>& event) {
  try {
    event();
    return true;
  } catch (const Failure& failure) {
    platform.failed(failure);
  } catch (const std::logic_error&) {  // an index or a size that a container refuses
    platform.failed(Failure(kSubscript));
  } catch (const std::bad_alloc&) {
    platform.failed(Failure(kOutOfMemory));
  } catch (const std::exception& error) {
    platform.failed(Failure(kPathAccess, error.what()));
  }
  return false;
}

}  // namespace korvane
