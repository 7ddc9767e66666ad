// Exceptions end here, because neither the host's frames nor Qt's event loop can be unwound.
#pragma once

/// Runs @p call. Returns false if it throws.
template <typename Call>
bool completes(Call &&call) noexcept
{
    try {
        call();
        return true;
    } catch (...) {
        return false;
    }
}
