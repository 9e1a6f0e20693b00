#pragma once
// What is done with whole shapes: selecting, deleting, changing their order.

#include <cstdint>
#include <vector>

#include "deck/model/host_state.h"

namespace vellumark::deck {

/// Selects shapes in their presentation's window, in that order, instead of or behind what is selected there.
/// "Invalid request." unless the window shows their sheet.
void selectShapes(const HostRef& host, const std::vector<ShapeKey>& shapes, bool replace);
/// Selects text in a shape; positions are UTF-16 units from 1.
void selectText(const HostRef& host, const ShapeKey& shape, std::int32_t start, std::int32_t length);

/// Selects a cell of a table, which is then the one selected shape, instead of or beside the cells of it that
/// are selected already.
void selectCell(const HostRef& host, const ShapeKey& cell, bool replace);

/// Deletes shapes, each with the alternatives that it has for other programs, and what points to them: ends
/// of connectors and animations. A group that becomes empty goes too, others shrink to what is left. Shapes
/// that are deleted already are passed over.
void deleteShapes(const HostRef& host, const std::vector<ShapeKey>& shapes);

/// The position among the shapes of the same sheet or group, from 1, the back.
std::int32_t zOrderPosition(const ShapeKey& shape);
/// Moves shapes of one sheet to the front (0) or back (1) or one place forward (2) or backward (3); several
/// shapes keep their order among themselves. -2147024809 for another command.
void changeZOrder(const std::vector<ShapeKey>& shapes, std::int32_t command);

}  // namespace vellumark::deck
