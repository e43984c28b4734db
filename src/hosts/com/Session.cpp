#include "hosts/com/Session.h"

#include <algorithm>
#include <mutex>
#include <vector>

#include "commands/Operations.h"
#include "platform/Failure.h"

namespace korvane {
namespace {

using Microsoft::WRL::ComPtr;

/// What the component keeps of each thread that uses it.
struct Threads {
  struct Living {
    DWORD thread;
    std::weak_ptr<Session> session;
  };
  struct Ending {
    DWORD thread;
    UINT_PTR timer;
    Session* session;
  };

  std::mutex mutex;
  std::vector<Living> living;
  std::vector<Ending> ending;
};

Threads threads;

ComPtr<ITypeLib> loadTypes() {
  ComPtr<ITypeLib> types;
  if (FAILED(LoadTypeLibEx(Component::path().data(), REGKIND_NONE, &types)))
    throw Failure(kAutomation, "the component lacks its type library");
  return types;
}

}  // namespace

std::shared_ptr<Session> Session::ofThisThread() {
  const std::lock_guard lock(threads.mutex);
  std::erase_if(threads.living, [](const auto& entry) { return entry.session.expired(); });
  for (const auto& entry : threads.living) {
    if (entry.thread == GetCurrentThreadId()) return entry.session.lock();
  }
  std::shared_ptr<Session> made(new Session, end);
  threads.living.push_back({GetCurrentThreadId(), made});
  return made;
}

Session::Session() : types_(loadTypes()) {}

Console Session::console() {
  const auto advance = [this](std::int64_t milliseconds, const TimerQueue::Gate& gate) {
    TimerQueue& timers = plugin_.engine.timers;
    timers.advanceTo(timers.now() + milliseconds, gate);
  };
  return {plugin_.engine, platform_, host_.calls, operationsOf(plugin_, host_), advance};
}

std::string Session::run(const std::string& command) {
  const ScriptTurn turn(turn_);
  return interpreter_.answer(command).value_or("");
}

// A desk may let go of everything while the plug-in is calling it, or behind an open message box.
// Then the plug-in has to stay until that has come back: its thread's timer looks after it.
void Session::end(Session* session) {
  if (session->turn_.waysOut == 0) {
    delete session;
    return;
  }
  const std::lock_guard lock(threads.mutex);
  threads.ending.push_back(
      {GetCurrentThreadId(), SetTimer(nullptr, 0, USER_TIMER_MINIMUM, endLater), session});
}

void CALLBACK Session::endLater(HWND, UINT, UINT_PTR timer, DWORD) {
  Session* ended = nullptr;
  {
    const std::lock_guard lock(threads.mutex);
    std::erase_if(threads.ending, [&](const Threads::Ending& entry) {
      if (entry.thread != GetCurrentThreadId() || entry.timer != timer) return false;
      if (entry.session->turn_.waysOut > 0) return false;
      ended = entry.session;
      return true;
    });
  }
  if (ended == nullptr) return;
  KillTimer(nullptr, timer);
  delete ended;
}

}  // namespace korvane
