#pragma once
// A notification with any number of listeners. subscribe() returns a token
// that ends the subscription when it is destroyed, so an object that listens
// can never be called after it is gone.

#include <functional>
#include <map>
#include <memory>

namespace tessaly {

class Event {
  using Listeners = std::map<int, std::function<void()>>;

 public:
  class Subscription {
   public:
    Subscription() = default;
    Subscription(std::weak_ptr<Listeners> listeners, int id) : m_listeners(std::move(listeners)), m_id(id) {}
    Subscription(Subscription&& other) noexcept { *this = std::move(other); }
    Subscription& operator=(Subscription&& other) noexcept {
      end();
      m_listeners = std::move(other.m_listeners);
      m_id = other.m_id;
      other.m_listeners.reset();
      return *this;
    }
    ~Subscription() { end(); }
    /// Ends the subscription now.
    void end() {
      if (auto listeners = m_listeners.lock()) listeners->erase(m_id);
      m_listeners.reset();
    }

   private:
    std::weak_ptr<Listeners> m_listeners;
    int m_id = 0;
  };

  [[nodiscard]] Subscription subscribe(std::function<void()> listener) {
    (*m_listeners)[++m_lastId] = std::move(listener);
    return Subscription(m_listeners, m_lastId);
  }

  /// Calls every listener, in the order they subscribed.
  void notify() const {
    const Listeners copy = *m_listeners;  // a listener may subscribe or end while called
    for (const auto& [id, listener] : copy)
      if (m_listeners->count(id)) listener();
  }

 private:
  std::shared_ptr<Listeners> m_listeners = std::make_shared<Listeners>();
  int m_lastId = 0;
};

}  // namespace tessaly
