// The small types that every unit shares.
//
//   TDateTime     days since 30.12.1899 as a double, the time of day as fraction; 0 is "no date"
//   Extended      the widest floating point type
//   Set<E>        a set of enumeration values, written {camTrim, camBalanceMax}
//   TCharSet      a set of the code units 0 to 255; a higher code unit is never a member
//   FunctionRef   a reference to something callable, for arguments; allocates nothing
//
// Threads: each has its own values, and any number may read the same one.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string_view>
#include <type_traits>
#include <utility>

namespace vx {

using TDateTime = double;
using Extended = long double;

// A set of values of the enumeration E, whose ordinals must lie below 64.
template <typename E>
class Set {
 public:
  constexpr Set() noexcept = default;
  constexpr Set(std::initializer_list<E> Values) noexcept {
    for (E value : Values) FBits |= Bit(value);
  }
  constexpr bool Has(E Value) const noexcept { return (FBits & Bit(Value)) != 0; }
  constexpr bool IsEmpty() const noexcept { return FBits == 0; }
  constexpr Set& Include(E Value) noexcept {
    FBits |= Bit(Value);
    return *this;
  }
  constexpr Set& Exclude(E Value) noexcept {
    FBits &= ~Bit(Value);
    return *this;
  }
  friend constexpr Set operator+(Set A, Set B) noexcept {
    A.FBits |= B.FBits;
    return A;
  }
  friend constexpr Set operator-(Set A, Set B) noexcept {
    A.FBits &= ~B.FBits;
    return A;
  }
  friend constexpr Set operator*(Set A, Set B) noexcept {
    A.FBits &= B.FBits;
    return A;
  }
  friend constexpr bool operator==(Set A, Set B) noexcept = default;

 private:
  static constexpr uint64_t Bit(E Value) noexcept { return uint64_t{1} << static_cast<unsigned>(Value); }
  uint64_t FBits = 0;
};

// A set of code units from 0 to 255.
class TCharSet {
 public:
  constexpr TCharSet() noexcept = default;
  // The set of all code units of Units; those above 255 are left out.
  constexpr TCharSet(std::u16string_view Units) noexcept {
    for (char16_t unit : Units) Include(unit);
  }
  constexpr TCharSet(const char16_t* Units) noexcept : TCharSet(std::u16string_view(Units)) {}
  constexpr TCharSet(std::initializer_list<char16_t> Units) noexcept {
    for (char16_t unit : Units) Include(unit);
  }
  // The set of the code units First to Last, both included.
  static constexpr TCharSet Range(char16_t First, char16_t Last) noexcept {
    TCharSet result;
    for (unsigned unit = First; unit <= Last && unit < 256; ++unit) result.Include(static_cast<char16_t>(unit));
    return result;
  }
  constexpr bool Has(char16_t Unit) const noexcept { return Unit < 256 && (FBits[Unit >> 6] >> (Unit & 63) & 1) != 0; }
  constexpr TCharSet& Include(char16_t Unit) noexcept {
    if (Unit < 256) FBits[Unit >> 6] |= uint64_t{1} << (Unit & 63);
    return *this;
  }
  constexpr TCharSet& Exclude(char16_t Unit) noexcept {
    if (Unit < 256) FBits[Unit >> 6] &= ~(uint64_t{1} << (Unit & 63));
    return *this;
  }
  friend constexpr TCharSet operator+(TCharSet A, const TCharSet& B) noexcept {
    for (int i = 0; i < 4; ++i) A.FBits[i] |= B.FBits[i];
    return A;
  }
  friend constexpr bool operator==(const TCharSet& A, const TCharSet& B) noexcept = default;

 private:
  uint64_t FBits[4] = {};
};

template <typename Signature>
class FunctionRef;

// Refers to a callable that must outlive the reference: meant for parameters only.
template <typename R, typename... Args>
class FunctionRef<R(Args...)> {
 public:
  template <typename F>
  requires(!std::is_same_v<std::remove_cvref_t<F>, FunctionRef> && std::is_invocable_r_v<R, F&, Args...>)
      FunctionRef(F&& Callee)
  noexcept {
    if constexpr (std::is_function_v<std::remove_reference_t<F>>) {
      FFunction = reinterpret_cast<void (*)()>(&Callee);
      FCall = [](const FunctionRef& Self, Args... Arguments) -> R {
        return reinterpret_cast<std::remove_reference_t<F>*>(Self.FFunction)(std::forward<Args>(Arguments)...);
      };
    } else {
      FObject = const_cast<void*>(static_cast<const void*>(std::addressof(Callee)));
      FCall = [](const FunctionRef& Self, Args... Arguments) -> R {
        return (*static_cast<std::remove_reference_t<F>*>(Self.FObject))(std::forward<Args>(Arguments)...);
      };
    }
  }
  R operator()(Args... Arguments) const { return FCall(*this, std::forward<Args>(Arguments)...); }

 private:
  union {
    void* FObject;
    void (*FFunction)();
  };
  R (*FCall)(const FunctionRef&, Args...);
};

}  // namespace vx
