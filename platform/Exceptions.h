// The exceptions of the library.
//
//   Exception              the base; carries its text as String and as UTF-8
//   EListError             a fault in a list of objects
//   EStringListError       a fault in a list of texts
//   EConvertError          a text that is not the value it should be
//   EMathError             a fault of a calculation, and its kinds EInvalidArgument, EInvalidOp,
//                          EOverflow, EZeroDivide
//   EInvalidCast           an object that is not of the class it should be
//   EAccessViolation       a node of a tree that should be there and is not
//   EInvalidPointer        an object that should be there and is not
//   EStreamError           a fault of a file, and its kinds EFOpenError, EFCreateError, EReadError,
//                          EWriteError; carries a text for the person at the screen, too (see UserMessages.h)
//
// Example:
//   try { list.Get(7); }
//   catch (const vx::EStringListError& e) { std::puts(e.what()); }  // List index out of bounds (7)
//
// Threads: an exception may be caught in one thread and raised again in another.
#pragma once

#include <exception>
#include <memory>
#include <string>
#include <utility>

#include "platform/String.h"

namespace vx {

class Exception : public std::exception {
 public:
  explicit Exception(String Message);
  // The text; the same text in UTF-8 comes from what().
  const String& GetMessage() const noexcept { return FMessage; }
  const char* what() const noexcept override { return FUtf8->c_str(); }

 private:
  String FMessage;
  std::shared_ptr<const std::string> FUtf8;  // shared, so that copying the exception never throws
};

class EListError : public Exception {
 public:
  using Exception::Exception;
};
class EStringListError : public Exception {
 public:
  using Exception::Exception;
};
class EConvertError : public Exception {
 public:
  using Exception::Exception;
};
class EInvalidCast : public Exception {
 public:
  using Exception::Exception;
};
class EAccessViolation : public Exception {
 public:
  using Exception::Exception;
};
class EInvalidPointer : public Exception {
 public:
  using Exception::Exception;
};
class EArgumentException : public Exception {
 public:
  using Exception::Exception;
};
class EMathError : public Exception {
 public:
  using Exception::Exception;
};
class EInvalidArgument : public EMathError {
 public:
  using EMathError::EMathError;
};
class EInvalidOp : public EMathError {
 public:
  using EMathError::EMathError;
};
class EOverflow : public EMathError {
 public:
  using EMathError::EMathError;
};
class EZeroDivide : public EMathError {
 public:
  using EMathError::EMathError;
};
// Its text is English, for logs and for those who look after the program.
class EStreamError : public Exception {
 public:
  // Without a UserMessage that is Message, too.
  explicit EStreamError(const String& Message) : EStreamError(Message, Message) {}
  EStreamError(String Message, String UserMessage, int Error = 0)
      : Exception(std::move(Message)), FUserMessage(std::move(UserMessage)), FError(Error) {}
  // The same in German, for the person at the screen: u"Die Datei \"a.csv\" kann nicht geöffnet werden. Sie ist nicht
  // vorhanden."
  const String& GetUserMessage() const noexcept { return FUserMessage; }
  // The system's number of the reason; 0 if it is none of the system's.
  int GetError() const noexcept { return FError; }

 private:
  String FUserMessage;
  int FError;
};
class EFOpenError : public EStreamError {
 public:
  using EStreamError::EStreamError;
};
class EFCreateError : public EStreamError {
 public:
  using EStreamError::EStreamError;
};
class EReadError : public EStreamError {
 public:
  using EStreamError::EStreamError;
};
class EWriteError : public EStreamError {
 public:
  using EStreamError::EStreamError;
};

// The texts of the list errors; %d stands for the index, capacity or count at fault.
inline constexpr char16_t SListIndexError[] = u"List index out of bounds (%d)";
inline constexpr char16_t SListCapacityError[] = u"List capacity out of bounds (%d)";
inline constexpr char16_t SListCountError[] = u"List count out of bounds (%d)";
inline constexpr char16_t SSortedListError[] = u"Operation not allowed on sorted list";
inline constexpr char16_t SDuplicateString[] = u"String list does not allow duplicates";

// Raises EConvertError "'Text' is not a valid Kind".
[[noreturn]] void RaiseConvertError(std::u16string_view Text, std::u16string_view Kind);
// The text Pattern with Value in place of its "%d".
String FormatListError(std::u16string_view Pattern, int Value);

}  // namespace vx
