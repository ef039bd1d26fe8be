// What assistive tools see of a DayCellsView: a table of seven columns whose cells are the days.
#pragma once

namespace velmar {

// Makes Qt ask here for the accessible side of such views. A second call does nothing.
void installDayCellsAccessibility();

}  // namespace velmar
