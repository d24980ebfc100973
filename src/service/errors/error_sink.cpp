#include "service/errors/error_sink.h"

#include <atomic>

namespace QXFontService_NS {
namespace {

std::atomic<ErrorSink*> installedSink{nullptr};

}  // namespace

void setErrorSink(ErrorSink* sink) {
  installedSink.store(sink, std::memory_order_release);
}

void collectError(const QXError& error) {
  if (ErrorSink* sink = installedSink.load(std::memory_order_acquire)) sink->append(error);
}

}  // namespace QXFontService_NS
