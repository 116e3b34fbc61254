// The exception families of the library. Every failure that a caller can meet is one of these, but for
// std::bad_alloc and std::length_error, where memory or the room of a list ends, and what the caller's own
// observers, events and data sets throw.
#pragma once

#include <stdexcept>
#include <string>

namespace Zor {

/// The base of all errors; what() is the message, in UTF-8, ready to be shown.
class Exception : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A value that its receiver cannot take.
class EArgumentException : public Exception {
 public:
  using Exception::Exception;
};

/// A value outside the limits that the message names.
class EArgumentOutOfRangeException : public EArgumentException {
 public:
  using EArgumentException::EArgumentException;
};

/// An operation that the state of its object does not allow.
class EInvalidOperation : public Exception {
 public:
  using Exception::Exception;
};

/// A text that is not of the form that the conversion needs.
class EConvertError : public Exception {
 public:
  using Exception::Exception;
};

/// A number outside the range of its type.
class ERangeError : public Exception {
 public:
  using Exception::Exception;
};

/// An index outside a list.
class EListError : public Exception {
 public:
  using Exception::Exception;
};

/// Reading or writing of a stream or file failed.
class EStreamError : public Exception {
 public:
  using Exception::Exception;
};

/// A stream ended where a value was expected, or held what no writer makes.
class EReadError : public EStreamError {
 public:
  using EStreamError::EStreamError;
};

/// A file that does not exist.
class EFileNotFoundException : public EStreamError {
 public:
  using EStreamError::EStreamError;
};

}  // namespace Zor
