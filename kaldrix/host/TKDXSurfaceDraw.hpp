#pragma once

#include "kaldrix/host/TSurface.hpp"
#include "kaldrix/types/TKDXBaseDraw.hpp"

namespace Zor::inline Host {

/// The description of a surface that the host's items paint on. Places on it are millimetres of paper.
class TKDXSurfaceDraw : public TKDXBaseDraw {
 public:
  /// `aSurface` must outlive it. `aDrawScale` is that of the document.
  TKDXSurfaceDraw(TSurface& aSurface, Int64 aDrawScale) : fSurface(&aSurface) { fDrawScale = aDrawScale; }

  TSurface* fSurface;
};

/// The surface behind `drw`, which has to be a TKDXSurfaceDraw: this host makes no others.
inline TSurface& Surface(TKDXBaseDraw& drw) { return *static_cast<TKDXSurfaceDraw&>(drw).fSurface; }

/// Brings the state of a surface back at the end of a block.
class TSavedState {
 public:
  explicit TSavedState(TSurface& aSurface) : fSurface(aSurface) { fSurface.Save(); }
  ~TSavedState() { fSurface.Restore(); }
  TSavedState(const TSavedState&) = delete;
  TSavedState& operator=(const TSavedState&) = delete;

 private:
  TSurface& fSurface;
};

}  // namespace Zor::inline Host
