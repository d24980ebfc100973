#include "font/sfnt/post.h"

namespace QXFontService_NS::sfnt {

Post Post::decode(ByteView table) {
  Post post;
  post.italicAngle = static_cast<float>(table.i32(4));
  post.underlinePosition = table.i16(8);
  post.underlineThickness = table.i16(10);
  post.isFixedPitch = table.u32(12) != 0;
  return post;
}

}  // namespace QXFontService_NS::sfnt
