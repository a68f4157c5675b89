#include "SampleListings.h"

#include "core/App.h"
#include "core/QuietPorts.h"
#include "core/benttable/Layout.h"
#include "core/form/MainForm.h"
#include "core/inputfile/InputFile.h"
#include "core/model/Choices.h"
#include "core/model/Numeric.h"
#include "core/model/Inputs.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <vector>

namespace tw::sample {

namespace {

const char* kBanner = "TARNWICK SAMPLE ENGINE -- SAMPLE RESULTS FROM THE GEOMETRY ONLY, NOT A DESIGN";

std::string fixed(double v, int decimals = 2) {
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.*f", decimals, v);
    return buf;
}

std::string pad(std::string s, size_t width) {
    if (s.size() < width) s.append(width - s.size(), ' ');
    return s;
}

struct Bent {
    std::string number;
    double bottomLeft = 0, bottomRight = 0;
    bool bottomCalculated = false;
    std::vector<double> steps;
    double volume = 0; // cubic feet
};

class Listings {
  public:
    explicit Listings(const std::array<std::string, 10>& names) : names_(names), app_(ports_, ports_, "") {}

    void run() {
        loadMainForm(app_);
        read_ = readInputFile(app_, names_[0]);
        if (read_) compute();
        writeConcrete();
        writeRebar();
        writeGeneral();
        writeBents();
        writeElevations();
        writeBeams();
        writePiles();
        writeQuantities();
        writeDrawingScript();
    }

  private:
    double value(const CtlId& id) const { return leadingNumber(app_.text(id)); }
    void error(const std::string& what) { errors_.push_back("ERROR LINE: " + what); }

    void compute() {
        beams_ = beamCount(app_);
        length_ = value(Ctl::txtCapLength);
        width_ = value(Ctl::txtCapWidth);
        depth_ = value(Ctl::txtCapDepth);
        if (app_.text(Ctl::txtCapLength).empty() || length_ <= 0) error("NO CAP LENGTH GIVEN");
        if (width_ <= 0) error("CAP WIDTH MUST BE GREATER THAN ZERO");
        if (depth_ <= 0) error("MINIMUM CAP DEPTH MUST BE GREATER THAN ZERO");
        double centerlines = 0;
        for (int i = 0; i < beams_; ++i)
            centerlines += value(CtlId(Ctl::txtCenterline, i));
        if (length_ > 0 && centerlines > length_)
            error("CENTERLINE DISTANCES (" + fixed(centerlines, 4) + " FT) EXCEED THE CAP LENGTH (" +
                  fixed(length_, 4) + " FT)");
        double steps = 0;
        for (int i = 0; i < beams_; ++i)
            steps += value(CtlId(Ctl::txtCapStep, i));
        if (length_ > 0 && steps > length_ + 1e-6)
            error("CAP STEPS (" + fixed(steps, 4) + " FT) EXCEED THE CAP LENGTH (" + fixed(length_, 4) + " FT)");
        if (app_.bentCounter > 99) error("MORE THAN 99 BENTS (" + std::to_string(app_.bentCounter) + ")");
        if (app_.grid.rows() < 2) error("THE BENT TABLE HOLDS NO BENT");
        for (int r = 1; r < app_.grid.rows(); ++r)
            bents_.push_back(bent(r));
    }

    Bent bent(int r) {
        Bent b;
        const Grid& g = app_.grid;
        b.number = trim(g.cell(r, 0));
        for (int k = 0; k < beams_; ++k) {
            const std::string cell = g.cell(r, 3 + k);
            if (!isNumeric(cell)) error("BENT " + b.number + ": STEP ELEVATION " + std::to_string(k + 1) + " MISSING");
            b.steps.push_back(leadingNumber(cell));
        }
        const double lowest = b.steps.empty() ? 0 : *std::min_element(b.steps.begin(), b.steps.end());
        b.bottomCalculated = !isNumeric(g.cell(r, 1)) && !isNumeric(g.cell(r, 2));
        b.bottomLeft = b.bottomCalculated ? lowest - depth_ : leadingNumber(g.cell(r, 1));
        b.bottomRight = b.bottomCalculated ? lowest - depth_ : leadingNumber(g.cell(r, 2));
        for (int k = 0; k < beams_; ++k) {
            double seat = value(CtlId(Ctl::txtCapStep, k));
            if (seat <= 0 && beams_ > 0) seat = length_ / beams_;
            const double x = segmentMid(k);
            const double bottom = b.bottomLeft + (b.bottomRight - b.bottomLeft) * (length_ > 0 ? x / length_ : 0);
            const double height = b.steps[k] - bottom;
            if (height < depth_ - 1e-6)
                error("BENT " + b.number + ": CAP AT STEP " + std::to_string(k + 1) +
                      " SHALLOWER THAN THE MINIMUM DEPTH");
            b.volume += std::max(height, 0.0) * seat * width_;
        }
        return b;
    }

    double segmentMid(int k) const {
        double x = 0;
        for (int i = 0; i < k; ++i)
            x += stepLength(i);
        return x + stepLength(k) / 2;
    }
    double stepLength(int k) const {
        const double s = value(CtlId(Ctl::txtCapStep, k));
        return s > 0 ? s : (beams_ > 0 ? length_ / beams_ : 0);
    }

    std::ofstream open(int which) { return std::ofstream(names_[which], std::ios::binary | std::ios::trunc); }
    void header(std::ostream& out, const std::string& title) {
        out << kBanner << "\r\n"
            << title << "\r\n"
            << "INPUT FILE: " << names_[0] << "\r\n\r\n";
    }

    void writeConcrete() {
        auto out = open(2);
        header(out, "CONCRETE DATA -- INPUT ECHO");
        if (!read_) {
            out << "ERROR LINE: THE INPUT FILE COULD NOT BE READ\r\n";
            std::string m = ports_.lastMessage;
            std::replace(m.begin(), m.end(), '\r', ' ');
            std::replace(m.begin(), m.end(), '\n', ' ');
            out << "ERROR LINE: " << m << "\r\n";
            return;
        }
        const std::string type = app_.text(Ctl::cboTybent);
        out << "RECORD 100  GENERAL SWITCHES\r\n";
        out << "  BENT TYPE                          " << type << "\r\n";
        out << "  DRAWING SCALE                      " << app_.text(Ctl::cboDrScale) << "\r\n";
        out << "  NUMBER OF BENTS                    " << app_.bentCounter << "\r\n";
        out << "  NUMBER OF BEAMS                    " << beams_ << "\r\n";
        out << "  BENT TO BE DRAWN                   " << app_.text(Ctl::cboBentDrawn) << "\r\n";
        out << "  SKEW                               " << app_.text(Ctl::cboBSkew) << "\r\n";
        out << "  ALL BEAM ANGLES THE SAME           " << app_.text(Ctl::cboAngleType) << "\r\n";
        out << "  CAP LENGTH                         " << app_.text(Ctl::txtCapLength) << " FT\r\n";
        out << "RECORD 200  CAP AND BEARING\r\n";
        out << "  CAP WIDTH                          " << app_.text(Ctl::txtCapWidth) << " FT\r\n";
        out << "  MINIMUM CAP DEPTH                  " << app_.text(Ctl::txtCapDepth) << " FT\r\n";
        out << "  BEARING HOLE                       " << app_.text(Ctl::cboBearingHole) << "\r\n";
        out << "  FRONT FACE TO CENTER OF BEARING    " << app_.text(Ctl::txtCenterlineDistance) << " FT\r\n";
        if (type != kIntermediate) {
            out << "  FILLET TRANSVERSE WIDTH            " << app_.text(Ctl::txtTransWidth) << " FT\r\n";
            out << "  FILLET LONGITUDINAL WIDTH          " << app_.text(Ctl::txtLongWidth) << " FT\r\n";
        }
        out << "RECORD 300  CAP STEPS (FT)\r\n";
        for (int i = 0; i < beams_; ++i)
            out << "  STEP " << pad(std::to_string(i + 1), 4) << app_.text(CtlId(Ctl::txtCapStep, i)) << "\r\n";
        out << "RECORD 400  BENT TABLE: " << bents_.size() << " BENTS\r\n";
        out << "RECORD 500  BEAM CENTERLINE DISTANCES (FT)\r\n";
        for (int i = 0; i < beams_; ++i)
            out << "  BEAM " << pad(std::to_string(i + 1), 4) << app_.text(CtlId(Ctl::txtCenterline, i)) << "\r\n";
        out << "RECORD 600  BEAM ANGLES\r\n";
        const int angles = app_.text(Ctl::cboAngleType) == "No" ? beams_ : 0;
        for (int i = 0; i < angles; ++i)
            out << "  BEAM " << pad(std::to_string(i + 1), 4) << app_.text(CtlId(Ctl::txtBeamangleH, i)) << " DEG "
                << app_.text(CtlId(Ctl::txtBeamangleM, i)) << " MIN " << app_.text(CtlId(Ctl::txtBeamangleS, i))
                << " SEC\r\n";
        out << "RECORD 700  PILES\r\n";
        out << "  PILE TYPE                          " << app_.text(Ctl::cboTypeOfPile) << "\r\n";
        out << "  STIRRUP SIZE                       " << app_.text(Ctl::cboStrirrups) << "\r\n";
        if (type != kIntermediate) {
            out << "RECORD 800  END POSTS, WINGWALLS, PILE BOXES\r\n";
            out << "  END POST WIDTH                     " << app_.text(Ctl::txtWidthEndPost) << " FT\r\n";
            out << "  END POST LENGTH                    " << app_.text(Ctl::txtLengthEndPost) << " FT\r\n";
            out << "  WINGWALL LENGTH                    " << app_.text(Ctl::txtWingwallLength) << " FT\r\n";
            out << "  PILE BOXES PER WINGWALL            " << app_.text(Ctl::cboWingwallPileBox) << "\r\n";
        }
        out << "\r\n";
        for (const auto& e : errors_)
            out << e << "\r\n";
        if (errors_.empty()) out << "NO INCONSISTENCY FOUND IN THE INPUT.\r\n";
    }

    void writeRebar() {
        auto out = open(3);
        header(out, "REBAR DATA");
        out << "THE SAMPLE ENGINE DESIGNS NO REINFORCEMENT. STIRRUP SIZE AS GIVEN: #" << app_.text(Ctl::cboStrirrups)
            << "\r\n";
    }

    void writeGeneral() {
        auto out = open(4);
        header(out, "GENERAL OUTPUT");
        out << "BENT TYPE       " << app_.text(Ctl::cboTybent) << "\r\n";
        out << "CAP             " << fixed(length_, 4) << " FT LONG, " << fixed(width_, 4) << " FT WIDE, "
            << fixed(depth_, 4) << " FT MINIMUM DEPTH\r\n";
        out << "BENTS           " << bents_.size() << "\r\nBEAMS           " << beams_ << "\r\n";
        out << "INCONSISTENCIES " << errors_.size() << " (SEE THE CONCRETE DATA LISTING)\r\n";
    }

    void writeBents() {
        auto out = open(5);
        header(out, "BENT OUTPUT: STEP HEIGHTS ABOVE THE BOTTOM OF CAP (FT) AND CAP CONCRETE");
        for (const auto& b : bents_) {
            out << "BENT " << pad(b.number, 4) << " BOTTOM OF CAP LEFT " << fixed(b.bottomLeft) << "  RIGHT "
                << fixed(b.bottomRight) << (b.bottomCalculated ? "  (CALCULATED)" : "") << "\r\n";
            for (size_t k = 0; k < b.steps.size(); ++k)
                out << "   STEP " << pad(std::to_string(k + 1), 4) << " ELEVATION " << pad(fixed(b.steps[k]), 10)
                    << " HEIGHT " << fixed(b.steps[k] - (b.bottomLeft + b.bottomRight) / 2) << "\r\n";
            out << "   CAP CONCRETE " << fixed(b.volume / 27.0) << " CU YD\r\n";
        }
    }

    void writeElevations() {
        auto out = open(6);
        header(out, "ELEVATION OUTPUT (FT)");
        for (int r = 1; r < app_.grid.rows(); ++r) {
            out << "BENT " << pad(trim(app_.grid.cell(r, 0)), 4);
            for (int c = 1; c < app_.grid.cols(); ++c)
                out << ' ' << pad(app_.grid.cell(r, c), 8);
            out << "\r\n";
        }
    }

    void writeBeams() {
        auto out = open(7);
        header(out, "BEAM OUTPUT: BEAM LINES FROM THE LEFT END OF THE CAP (FT)");
        double x = 0;
        for (int i = 0; i < beams_; ++i) {
            x += value(CtlId(Ctl::txtCenterline, i));
            out << "BEAM " << pad(std::to_string(i + 1), 4) << " AT " << fixed(x, 4) << "\r\n";
        }
    }

    void writePiles() {
        auto out = open(8);
        header(out, "PILE OUTPUT");
        out << "PILE TYPE " << app_.text(Ctl::cboTypeOfPile) << "\r\n";
        if (app_.text(Ctl::cboBatterPile) == "Yes")
            out << "BATTERED PILES DRAWN: " << app_.text(Ctl::cboBatteredPile) << "\r\n";
    }

    void writeQuantities() {
        auto out = open(9);
        header(out, "QUANTITIES");
        double total = 0;
        for (const auto& b : bents_) {
            out << "BENT " << pad(b.number, 4) << " CAP CONCRETE " << fixed(b.volume / 27.0) << " CU YD\r\n";
            total += b.volume;
        }
        out << "TOTAL CAP CONCRETE " << fixed(total / 27.0) << " CU YD FOR " << bents_.size() << " BENTS\r\n";
    }

    // The elevation of the first bent as lines, for the drawing batch program.
    void writeDrawingScript() {
        auto out = open(1);
        out << "* TARNWICK SAMPLE DRAWING SCRIPT: ELEVATION OF THE FIRST BENT\r\n";
        if (bents_.empty() || length_ <= 0) return;
        const Bent& b = bents_.front();
        auto line = [&](double x1, double y1, double x2, double y2) {
            out << "LINE " << fixed(x1, 4) << ' ' << fixed(y1, 4) << ' ' << fixed(x2, 4) << ' ' << fixed(y2, 4)
                << "\r\n";
        };
        line(0, b.bottomLeft, length_, b.bottomRight);
        double x = 0, previous = b.bottomLeft;
        for (int k = 0; k < beams_; ++k) {
            const double next = x + stepLength(k);
            line(x, previous, x, b.steps[k]);
            line(x, b.steps[k], next, b.steps[k]);
            previous = b.steps[k];
            x = next;
        }
        line(x, previous, length_, b.bottomRight);
        const int piles = std::max(2, beams_);
        for (int p = 0; p < piles; ++p) {
            const double px = length_ * (p + 0.5) / piles;
            const double bottom = b.bottomLeft + (b.bottomRight - b.bottomLeft) * px / length_;
            line(px, bottom, px, bottom - 10.0);
        }
    }

    std::array<std::string, 10> names_;
    QuietPorts ports_;
    App app_;
    bool read_ = false;
    int beams_ = 0;
    double length_ = 0, width_ = 0, depth_ = 0;
    std::vector<Bent> bents_;
    std::vector<std::string> errors_;
};

} // namespace

void writeListings(const std::array<std::string, 10>& names) { Listings(names).run(); }

} // namespace tw::sample
