#include "platform/Events.h"

#include <exception>
#include <new>
#include <stdexcept>
#include <system_error>

namespace korvane {

bool runEvent(Platform& platform, const std::function<void()>& event) {
  try {
    event();
    return true;
  } catch (const Failure& failure) {
    platform.failed(failure);
  } catch (const std::out_of_range&) {  // an index that a container refuses
    platform.failed(Failure(kSubscript));
  } catch (const std::length_error&) {  // a size that it refuses
    platform.failed(Failure(kSubscript));
  } catch (const std::bad_alloc&) {
    platform.failed(Failure(kOutOfMemory));
  } catch (const std::system_error& error) {  // of files and folders
    platform.failed(Failure(kPathAccess, error.what()));
  } catch (const std::exception& error) {
    platform.failed(Failure(kInternal, error.what()));
  }
  return false;
}

}  // namespace korvane
