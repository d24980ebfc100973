#pragma once

#include "layout/context/chain_context_format1.h"
#include "layout/context/chain_context_format2.h"
#include "layout/context/chain_context_format3.h"
#include "layout/context/context_format1.h"
#include "layout/context/context_format2.h"
#include "layout/context/context_format3.h"

namespace QXFontService_NS {

// The contextual subtables of OpenType `GSUB` 5 and 6: their rules are those of both tables.

class FS_LayoutTables::GSUB_ContextSubstFormat1 final : public TTI_ContextFormat1 {
 public:
  using TTI_ContextFormat1::TTI_ContextFormat1;
  int lookupType() const override { return 5; }
};

class FS_LayoutTables::GSUB_ContextSubstFormat2 final : public TTI_ContextFormat2 {
 public:
  using TTI_ContextFormat2::TTI_ContextFormat2;
  int lookupType() const override { return 5; }
};

class FS_LayoutTables::GSUB_ContextSubstFormat3 final : public TTI_ContextFormat3 {
 public:
  using TTI_ContextFormat3::TTI_ContextFormat3;
  int lookupType() const override { return 5; }
};

class FS_LayoutTables::GSUB_ChainContextSubstFormat1 final : public TTI_ChainContextFormat1 {
 public:
  using TTI_ChainContextFormat1::TTI_ChainContextFormat1;
  int lookupType() const override { return 6; }
};

class FS_LayoutTables::GSUB_ChainContextSubstFormat2 final : public TTI_ChainContextFormat2 {
 public:
  using TTI_ChainContextFormat2::TTI_ChainContextFormat2;
  int lookupType() const override { return 6; }
};

class FS_LayoutTables::GSUB_ChainContextSubstFormat3 final : public TTI_ChainContextFormat3 {
 public:
  using TTI_ChainContextFormat3::TTI_ChainContextFormat3;
  int lookupType() const override { return 6; }
};

}  // namespace QXFontService_NS
