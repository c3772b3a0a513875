// A value that threads share, together with the mutex that guards it.
#pragma once

#include <mutex>
#include <utility>

// The value is reached through a Held alone, which has the mutex locked from its construction to its destruction: no
// line can read or write the value without the lock. The mutex is not recursive; a thread that holds one value may lock
// another kind of value, never the same again.
template <typename Value>
class Guarded {
public:
    class Held {
    public:
        explicit Held(Guarded& guarded) : m_lock(guarded.m_mutex), m_value(guarded.m_value) {}
        Held(const Held&) = delete;
        Held& operator=(const Held&) = delete;
        ~Held() = default;

        // What they return is for as long as the Held lives; so a temporary one returns nothing.
        Value& operator*() & { return m_value; }
        Value* operator->() & { return &m_value; }
        Value& operator*() && = delete;
        Value* operator->() && = delete;

    private:
        std::scoped_lock<std::mutex> m_lock;
        Value& m_value;
    };

    // Waits without a time limit.
    Held hold() { return Held(*this); }

    // For values that are cheap to copy.
    Value copy()
    {
        const std::scoped_lock lock(m_mutex);
        return m_value;
    }
    void set(Value value)
    {
        const std::scoped_lock lock(m_mutex);
        m_value = std::move(value);
    }

    // Whether nobody holds the value at this moment. Not for a thread that holds it.
    bool is_free()
    {
        const std::unique_lock lock(m_mutex, std::try_to_lock);
        return lock.owns_lock();
    }

private:
    std::mutex m_mutex;
    Value m_value;
};
