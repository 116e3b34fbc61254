// Diagram text to the neutral model.
#pragma once

#include "kaldrix/diagrams/DiagramToJson.hpp"
#include "kaldrix/diagrams/TKDXDiagramModel.hpp"
#include "kaldrix/diagrams/TKDXMermaidParser.hpp"
#include "kaldrix/diagrams/TKDXPlantUMLParser.hpp"
#include "kaldrix/diagrams/ZORParseDiagram.hpp"
