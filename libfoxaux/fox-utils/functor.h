// SPDX-License-Identifier: MIT
// Callbacks, as reference-counted member functions: how a canvas calls a window whose class it does
// not know.
#pragma once

#include <cstdint>
#include <utility>

/// A member function bound to an object, held by value; copies share one counted body.
///
/// An empty one has no target: calling it does nothing and gives a default R. The object called
/// is not owned and must outlive the calls. The count is a plain integer: one thread only.
///
///     functor0<void> changed(this, &FMain::update_color_well);
///     changed();
template<class R, class... A>
class functor {
public:
    /// What a functor calls; owned by the body that its copies share.
    class handle {
    public:
        handle() = default;
        handle(const handle&) = delete;
        handle& operator=(const handle&) = delete;
        virtual ~handle() = default;
        virtual R operator()(A... arguments) = 0;
    };

    /// A member function of `T`, bound to an object; a virtual one is dispatched as usual.
    template<class T>
    class handleClass : public handle {
    public:
        handleClass(T* object, R (T::*member)(A...)) : object(object), member(member) {}
        R operator()(A... arguments) override {
            return (object->*member)(std::forward<A>(arguments)...);
        }

    private:
        T* object;
        R (T::*member)(A...);
    };

    functor() : body(new shared_body) {}
    /// Takes ownership of `target`, which may be any class derived from handle.
    explicit functor(handle* target) : functor() { body->h = target; }
    template<class T>
    functor(T* object, R (T::*member)(A...)) : functor(new handleClass<T>(object, member)) {}
    functor(const functor& other) : body(other.body) { ++body->refs; }
    functor& operator=(functor other) { // by value: counted before the old body is released
        std::swap(body, other.body);
        return *this;
    }
    ~functor() { release(); }

    /// True if there is a target to call.
    explicit operator bool() const { return body->h != nullptr; }

    R operator()(A... arguments) const {
        if (!body->h) return R();
        return (*body->h)(std::forward<A>(arguments)...);
    }

private:
    struct shared_body {
        std::int32_t refs = 1; ///< functors that share the body
        handle* h = nullptr;   ///< the target, owned; null in an empty functor
    };

    // Where this is inlined g++ 12 loses track of the count and warns of a use after free.
    [[gnu::noinline]] void release() {
        if (--body->refs > 0) return;
        delete body->h;
        delete body;
    }

    shared_body* body; ///< never null
};

template<class R>
using functor0 = functor<R>;
template<class R, class A>
using functor1 = functor<R, A>;
