// Where exceptions end. None may reach the host's frames or Qt's event loop, which cannot be unwound.
#pragma once

/// Runs @p call. Returns false if it throws.
template <class Call>
bool completes(Call &&call) noexcept
{
    try {
        call();
        return true;
    } catch (...) {
        return false;
    }
}
