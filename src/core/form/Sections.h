// The sections and repeated rows of the main form: what the bent type, the
// number of beams and the options show, hide, label and place.
#pragma once

namespace tw {

class App;

void applyBentType(App& app);
// Rows for the number of beams: cap steps, step elevations, beam angles, centerline distances.
void applyBeamCount(App& app);
void applyBeamAngleRows(App& app);

} // namespace tw
