// Diagrams as drawings.
#pragma once

#include <string>

#include "kaldrix/diagrams/TKDXDiagramModel.hpp"
#include "kaldrix/host/TKDXLabel.hpp"

namespace Zor::inline Host {

/// What becomes of the page.
enum TDiagramPage : std::uint8_t {
  dpgGrow,  ///< stays as it is unless the diagram needs a larger one; the diagram stands in its middle
  dpgFit    ///< as large as the diagram with a margin around it
};

/// Draws the diagram in the document, in place of its items: it becomes flow nodes and links, lines and
/// texts. The model learns the identities of the nodes, the document the title. Nothing is recorded for undo,
/// and what was recorded goes. Raises EInvalidOperation, with the document as it was, for a diagram that is
/// larger than any page.
void DrawDiagram(TKDXLabel& aDocument, TKDXDiagramModel& aModel, TDiagramPage aPage);

/// A TZORDiagramLoader for documents of this class. The document turns to emFlowChart. False, with the
/// document as it was, for a text without a diagram.
bool LoadDiagram(TKDXBaseLabel& aDocument, const std::string& aText, TZORDiagramFormat aFormat);

/// Registers LoadDiagram, once for all documents.
void UseDiagramLoader();

}  // namespace Zor::inline Host
