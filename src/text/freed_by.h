// The deleter of a std::unique_ptr that owns what a C library or Windows has made: it calls the function that frees it.
#pragma once

// `Free` takes the pointer that is owned.
template <auto Free>
struct FreedBy {
    template <typename T>
    void operator()(T* object) const
    {
        Free(object);
    }
};
