// Looks whether examples of headers give what they show. cmake/CheckExamples.sh makes the calls.
//
//   Shown    compares one result
//   Run      runs an example
//   Result   the status of the program, and a line on all of it
#pragma once

#include <cmath>
#include <cstdio>
#include <exception>
#include <string>
#include <type_traits>

namespace examples {

inline int Wrong = 0;

// A value as a text for people.
template <typename T>
std::string AsText(const T& Value) {
  if constexpr (std::is_convertible_v<T, std::string>) return Value;
  if constexpr (std::is_arithmetic_v<T>) return std::to_string(Value);
  if constexpr (requires { Value.ToUtf8(); }) return Value.ToUtf8();
  if constexpr (requires { Value.ToExtended(); }) return std::to_string(Value.ToExtended());
  return "something else";
}

template <typename TGot, typename TWanted>
bool IsAlike(const TGot& Got, const TWanted& Wanted) {
  if constexpr (requires { Got.ToExtended(); } && std::is_arithmetic_v<TWanted>)
    return IsAlike(Got.ToExtended(), Wanted);
  else if constexpr (std::is_floating_point_v<TGot>)
    return std::abs(Got - static_cast<TGot>(Wanted)) < 1e-9;
  else if constexpr (std::is_arithmetic_v<TGot>)
    return Got == static_cast<TGot>(Wanted);
  else
    return Got == Wanted;
}

template <typename TGot, typename TWanted>
void Shown(const char* File, int Line, const TGot& Got, const TWanted& Wanted) {
  if (IsAlike(Got, Wanted)) return;
  ++Wrong;
  std::printf("%s:%d: shows something else than it gives: %s\n", File, Line, AsText(Got).c_str());
}

template <typename TExample>
void Run(const char* File, TExample Example) {
  try {
    Example();
  } catch (const std::exception& error) {
    ++Wrong;
    std::printf("%s: the example raises %s\n", File, error.what());
  }
}

inline int Result(const char* Counts, int Results) {
  std::printf("%s; %d results looked at, %d of them wrong\n", Counts, Results, Wrong);
  return Wrong > 0;
}

}  // namespace examples
