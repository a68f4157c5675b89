// The repeated rows that follow the number of beams: cap steps, step
// elevations, beam angles and centerline distances.
#pragma once

namespace tw {

class App;

void applyBeamCount(App& app);
void applyBeamAngleRows(App& app);
void installBeamRows(App& app);

} // namespace tw
