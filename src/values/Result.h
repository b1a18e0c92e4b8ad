#pragma once

#include <QString>

#include <optional>
#include <utility>
#include <variant>

namespace Foundation
{

// Why an operation failed: a code, by which the program distinguishes failures, and words for the user, which
// are full sentences such as "The disk is full.". The words are null if no user reads them.
template <class Code>
struct Failure
{
    Code code;
    QString words = {};
};
template <class Code>
Failure(Code) -> Failure<Code>;
template <class Code>
Failure(Code, QString) -> Failure<Code>;

// The result of an operation: a value or a Failure. All our own classes report failures in this way; nothing
// throws. A function can return a value or a Failure directly.
template <class Value, class Code>
class [[nodiscard]] Result
{
public:
    Result(Value value)
        : m_ending(std::in_place_index<0>, std::move(value))
    {
    }
    Result(Failure<Code> failure)
        : m_ending(std::in_place_index<1>, std::move(failure))
    {
    }

    bool succeeded() const { return m_ending.index() == 0; }
    explicit operator bool() const { return succeeded(); }

    // Only after success.
    Value &operator*() { return *std::get_if<0>(&m_ending); }
    const Value &operator*() const { return *std::get_if<0>(&m_ending); }
    Value *operator->() { return std::get_if<0>(&m_ending); }
    const Value *operator->() const { return std::get_if<0>(&m_ending); }

    // Only after a failure.
    const Failure<Code> &failure() const { return *std::get_if<1>(&m_ending); }
    bool failedWith(Code code) const { return !succeeded() && failure().code == code; }
    // Null after success.
    QString words() const { return succeeded() ? QString() : failure().words; }

private:
    std::variant<Value, Failure<Code>> m_ending;
};

// The result of an operation without a value. `{}` means success.
template <class Code>
class [[nodiscard]] Result<void, Code>
{
public:
    Result() = default;
    Result(Failure<Code> failure)
        : m_failure(std::move(failure))
    {
    }

    bool succeeded() const { return !m_failure; }
    explicit operator bool() const { return succeeded(); }

    // Only after a failure.
    const Failure<Code> &failure() const { return *m_failure; }
    bool failedWith(Code code) const { return m_failure && m_failure->code == code; }
    // Null after success.
    QString words() const { return m_failure ? m_failure->words : QString(); }

private:
    std::optional<Failure<Code>> m_failure;
};

} // namespace Foundation
