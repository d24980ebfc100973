#pragma once

#include "layout/context/chain_context_format1.h"
#include "layout/context/chain_context_format2.h"
#include "layout/context/chain_context_format3.h"
#include "layout/context/context_format1.h"
#include "layout/context/context_format2.h"
#include "layout/context/context_format3.h"

namespace QXFontService_NS {

// The contextual subtables of OpenType `GPOS` 7 and 8: their rules are those of both tables.

class FS_LayoutTables::GPOS_ContextPosFormat1 final : public TTI_ContextFormat1 {
 public:
  using TTI_ContextFormat1::TTI_ContextFormat1;
  int lookupType() const override { return 7; }
};

class FS_LayoutTables::GPOS_ContextPosFormat2 final : public TTI_ContextFormat2 {
 public:
  using TTI_ContextFormat2::TTI_ContextFormat2;
  int lookupType() const override { return 7; }
};

class FS_LayoutTables::GPOS_ContextPosFormat3 final : public TTI_ContextFormat3 {
 public:
  using TTI_ContextFormat3::TTI_ContextFormat3;
  int lookupType() const override { return 7; }
};

class FS_LayoutTables::GPOS_ChainContextPosFormat1 final : public TTI_ChainContextFormat1 {
 public:
  using TTI_ChainContextFormat1::TTI_ChainContextFormat1;
  int lookupType() const override { return 8; }
};

class FS_LayoutTables::GPOS_ChainContextPosFormat2 final : public TTI_ChainContextFormat2 {
 public:
  using TTI_ChainContextFormat2::TTI_ChainContextFormat2;
  int lookupType() const override { return 8; }
};

class FS_LayoutTables::GPOS_ChainContextPosFormat3 final : public TTI_ChainContextFormat3 {
 public:
  using TTI_ChainContextFormat3::TTI_ChainContextFormat3;
  int lookupType() const override { return 8; }
};

}  // namespace QXFontService_NS
