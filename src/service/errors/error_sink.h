#pragma once

#include "qxfontservice/names.h"

namespace QXFontService_NS {

/// Where collected errors go. The registry implements it; without one they are dropped, since
/// there is no list that a host could read.
class ErrorSink {
 public:
  virtual void append(const QXError& error) = 0;

 protected:
  ~ErrorSink() = default;
};

/// Installs the sink; null takes it away. The caller keeps the object alive.
void setErrorSink(ErrorSink* sink);

/// Gives an error to the sink, if there is one.
void collectError(const QXError& error);

}  // namespace QXFontService_NS
