// The result of a function that can fail for a reason that the user must see.
#pragma once

#include <QString>

#include <optional>
#include <utility>

/// Why something was not done, as a sentence in the user's language. Empty only when the user cancelled it.
struct Failure {
    QString reason;
};

/// A value of type T, or a Failure. Result<> is a success without a value, or a Failure.
template <typename T = void>
class Result;

template <>
class [[nodiscard]] Result<void> {
public:
    Result() = default;
    Result(Failure failure) : m_failure(std::move(failure)) {}

    /// True for a success.
    explicit operator bool() const { return !m_failure; }
    /// An empty reason for a success.
    Failure failure() const { return m_failure.value_or(Failure()); }
    QString reason() const { return failure().reason; }

private:
    std::optional<Failure> m_failure;
};

template <typename T>
class [[nodiscard]] Result : public Result<void> {
public:
    Result(T value) : m_value(std::move(value)) {}
    Result(Failure failure) : Result<void>(std::move(failure)) {}

    /// The value. Call only for a success.
    T &operator*() { return *m_value; }
    const T &operator*() const { return *m_value; }
    T *operator->() { return &*m_value; }
    const T *operator->() const { return &*m_value; }

private:
    std::optional<T> m_value;
};
