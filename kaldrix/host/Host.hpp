// All that a program uses of the library Kaldrix::kaldrix_host: documents with fonts and painting, their
// exports, label runs and diagrams; and the library below it.
#pragma once

#include "kaldrix/Kaldrix.hpp"
#include "kaldrix/host/Export.hpp"
#include "kaldrix/host/LiteralCodes.hpp"
#include "kaldrix/host/RunAnswers.hpp"
#include "kaldrix/host/RunRepeats.hpp"
#include "kaldrix/host/TKDXLabel.hpp"
#include "kaldrix/host/TLabelRun.hpp"
#include "kaldrix/host/TRunWriter.hpp"
#include "kaldrix/host/TSqliteDataSet.hpp"
#include "kaldrix/host/diagrams/DiagramLoader.hpp"
