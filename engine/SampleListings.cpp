// SPDX-License-Identifier: Apache-2.0
#include "SampleListings.h"

#include "EnginePorts.h"
#include "core/app/App.h"
#include "core/inputfile/InputFile.h"
#include "core/model/Choices.h"
#include "core/model/Inputs.h"
#include "core/model/Numeric.h"

#include <algorithm>
#include <cctype>
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

// The lines of the drawing script, one element a line after the
// symbology (level, colour, weight, line style) it is drawn with.
class DrawingScript {
  public:
    explicit DrawingScript(std::ostream& out) : out_(out) {}
    void symbology(int level, int color, int weight, int style) {
        out_ << "SYMBOLOGY " << level << ' ' << color << ' ' << weight << ' ' << style << "\r\n";
    }
    void line(double x1, double y1, double x2, double y2) {
        out_ << "LINE " << fixed(x1, 4) << ' ' << fixed(y1, 4) << ' ' << fixed(x2, 4) << ' ' << fixed(y2, 4) << "\r\n";
    }
    void shape(const std::vector<std::pair<double, double>>& points) {
        out_ << "SHAPE " << points.size();
        for (const auto& [x, y] : points)
            out_ << ' ' << fixed(x, 4) << ' ' << fixed(y, 4);
        out_ << "\r\n";
    }
    void circle(double x, double y, double r) {
        out_ << "CIRCLE " << fixed(x, 4) << ' ' << fixed(y, 4) << ' ' << fixed(r, 4) << "\r\n";
    }
    void arc(double x, double y, double r, double start, double sweep) {
        out_ << "ARC " << fixed(x, 4) << ' ' << fixed(y, 4) << ' ' << fixed(r, 4) << ' ' << fixed(start, 1) << ' '
             << fixed(sweep, 1) << "\r\n";
    }
    void text(double x, double y, double height, double angle, std::string text) {
        std::replace(text.begin(), text.end(), '\r', ' ');
        std::replace(text.begin(), text.end(), '\n', ' ');
        out_ << "TEXT " << fixed(x, 4) << ' ' << fixed(y, 4) << ' ' << fixed(height, 4) << ' ' << fixed(angle, 1) << ' '
             << text << "\r\n";
    }

  private:
    std::ostream& out_;
};

// Levels of the sample drawing.
constexpr int kCapLevel = 1, kPileLevel = 2, kBeamLevel = 3, kTextLevel = 10, kDimensionLevel = 20, kTitleLevel = 30;
// Feet of each pile drawn down to its break.
constexpr double kPileLength = 10.0;

class Listings {
  public:
    explicit Listings(const std::array<std::string, 10>& names) : names_(names), app_(ports_, ports_, "") {}

    void run() {
        app_.loadMainForm();
        read_ = app_.readFile(names_[0]);
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
        beams_ = app_.project().beams();
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
        if (app_.project().bentCounter > 99)
            error("MORE THAN 99 BENTS (" + std::to_string(app_.project().bentCounter) + ")");
        if (app_.project().table().rows() < 2) error("THE BENT TABLE HOLDS NO BENT");
        for (int r = 1; r < app_.project().table().rows(); ++r)
            bents_.push_back(bent(r));
    }

    Bent bent(int r) {
        Bent b;
        const BentTable& g = app_.project().table();
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
        out << "  NUMBER OF BENTS                    " << app_.project().bentCounter << "\r\n";
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
        for (int r = 1; r < app_.project().table().rows(); ++r) {
            out << "BENT " << pad(trim(app_.project().table().cell(r, 0)), 4);
            for (int c = 1; c < app_.project().table().cols(); ++c)
                out << ' ' << pad(app_.project().table().cell(r, c), 8);
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

    // The elevation of the first bent for the drawing batch program: the cap,
    // the piles, the beam lines, elevations and titles, each on a level and
    // in a colour of its own (see DgnBatch.cpp for the script's lines).
    void writeDrawingScript() {
        auto out = open(1);
        out << "* TARNWICK SAMPLE DRAWING SCRIPT: ELEVATION OF THE FIRST BENT\r\n";
        if (bents_.empty() || length_ <= 0) return;
        const Bent& b = bents_.front();
        DrawingScript d(out);

        const std::vector<double> edges = drawCap(d, b);
        const double top = b.steps.empty() ? b.bottomLeft : *std::max_element(b.steps.begin(), b.steps.end());
        const double bottom = std::min(b.bottomLeft, b.bottomRight);
        // Annotation grows with a long cap, so that it reads when the drawing is seen whole.
        const double a = std::max(1.0, length_ / 36.0);
        drawStepElevations(d, b, edges, a);
        drawBeamLines(d, top, a);
        drawPiles(d, b, a);
        drawCapLength(d, top, a);
        drawTitleBlock(d, b, bottom, a);
    }

    // The cap's outline: its bottom, then its stepped top from the right end back
    // to the left. Returns the ends of the steps along the cap.
    std::vector<double> drawCap(DrawingScript& d, const Bent& b) const {
        d.symbology(kCapLevel, 1, 2, 0); // blue, heavy
        std::vector<std::pair<double, double>> cap = {{0, b.bottomLeft}, {length_, b.bottomRight}};
        std::vector<double> edges = {0};
        for (int k = 0; k < beams_; ++k)
            edges.push_back(edges.back() + stepLength(k));
        for (int k = beams_ - 1; k >= 0; --k) {
            cap.emplace_back(k == beams_ - 1 ? length_ : edges[k + 1], b.steps[k]);
            cap.emplace_back(k == 0 ? 0 : edges[k], b.steps[k]);
        }
        d.shape(cap);
        return edges;
    }

    // Each step's elevation above it, turned upright where the step is too short for it.
    void drawStepElevations(DrawingScript& d, const Bent& b, const std::vector<double>& edges, double a) const {
        d.symbology(kTextLevel, 0, 0, 0);
        for (int k = 0; k < beams_; ++k) {
            const std::string label = "EL. " + fixed(b.steps[k]);
            const double h = 0.35 * a, mid = (edges[k] + edges[k + 1]) / 2;
            if (textWidth(label, h) < 0.9 * (edges[k + 1] - edges[k]))
                d.text(mid - textWidth(label, h) / 2, b.steps[k] + 0.2 * a, h, 0, label);
            else
                d.text(mid + h / 2, b.steps[k] + 0.2 * a, h, 90, label);
        }
    }

    // The beam lines above the cap, then their names.
    void drawBeamLines(DrawingScript& d, double top, double a) const {
        d.symbology(kBeamLevel, 3, 0, 7); // red centre lines
        double x = 0;
        std::vector<double> beamsAt;
        for (int i = 0; i < beams_; ++i) {
            x += value(CtlId(Ctl::txtCenterline, i));
            beamsAt.push_back(x);
            d.line(x, top + 1.2 * a, x, top + 3.2 * a);
        }
        d.symbology(kTextLevel, 0, 0, 0);
        for (int i = 0; i < beams_; ++i)
            d.text(beamsAt[i] - 0.2 * a, top + 1.4 * a, 0.3 * a, 90, "BEAM " + std::to_string(i + 1));
    }

    // The piles spread evenly under the cap, at least two.
    void drawPiles(DrawingScript& d, const Bent& b, double a) const {
        const double pile = pileSize();
        const int piles = std::max(2, beams_);
        for (int p = 0; p < piles; ++p) {
            const double px = length_ * (p + 0.5) / piles;
            const double under = b.bottomLeft + (b.bottomRight - b.bottomLeft) * px / length_;
            const double foot = under - kPileLength;
            d.symbology(kPileLevel, 98, 1, 0); // green
            d.shape({{px - pile / 2, under}, {px + pile / 2, under}, {px + pile / 2, foot}, {px - pile / 2, foot}});
            // The pile goes on below: a break drawn as two half circles.
            d.arc(px - pile / 4, foot, pile / 4, 180, 180);
            d.arc(px + pile / 4, foot, pile / 4, 0, 180);
            d.symbology(kTextLevel, 0, 0, 0);
            d.text(px + pile / 2 + 0.45 * a, foot + 1.0, 0.3 * a, 90, "PILE " + std::to_string(p + 1));
        }
    }

    // The cap length, dimensioned above the beam lines.
    void drawCapLength(DrawingScript& d, double top, double a) const {
        const double dimension = top + 4.2 * a, tick = 0.3 * a;
        d.symbology(kDimensionLevel, 6, 0, 0); // orange
        d.line(0, dimension, length_, dimension);
        d.line(-tick, dimension - tick, tick, dimension + tick);
        d.line(length_ - tick, dimension - tick, length_ + tick, dimension + tick);
        d.line(0, top + tick, 0, dimension + 0.5 * a);
        d.line(length_, top + tick, length_, dimension + 0.5 * a);
        const std::string capLength = fixed(length_, 4) + " FT";
        d.text(length_ / 2 - textWidth(capLength, 0.4 * a) / 2, dimension + 0.2 * a, 0.4 * a, 0, capLength);
    }

    // Title block below the piles: the bent's number in a circle, then the project.
    void drawTitleBlock(DrawingScript& d, const Bent& b, double bottom, double a) const {
        const double titleY = bottom - kPileLength - 3.0 * a;
        d.symbology(kTitleLevel, 13, 1, 0); // purple
        d.circle(1.2 * a, titleY + 0.5 * a, 1.2 * a);
        d.text(1.2 * a - textWidth(b.number, 0.8 * a) / 2, titleY + 0.1 * a, 0.8 * a, 0, b.number);
        d.symbology(kTitleLevel, 0, 1, 0);
        d.text(3.0 * a, titleY, 1.0 * a, 0, "ELEVATION OF BENT " + b.number);
        d.symbology(kTextLevel, 0, 0, 0);
        double lineY = titleY - 1.2 * a;
        for (int i = 0; i < 3; ++i) {
            const std::string info = trim(app_.text(CtlId(Ctl::txtProjectInfo, i)));
            if (info.empty()) continue;
            d.text(3.0 * a, lineY, 0.5 * a, 0, info);
            lineY -= 0.9 * a;
        }
        d.text(3.0 * a, lineY, 0.4 * a, 0, app_.text(Ctl::cboTybent) + ", PILES " + app_.text(Ctl::cboTypeOfPile));
    }

    // The pile's side from its type ("PSC, 14 IN SQ"); 14 inches when it names none.
    double pileSize() const {
        const std::string type = app_.text(Ctl::cboTypeOfPile);
        const auto inches = type.find(" IN");
        if (inches != std::string::npos) {
            auto start = inches;
            while (start > 0 && std::isdigit(static_cast<unsigned char>(type[start - 1])))
                --start;
            if (start < inches) return std::stoi(type.substr(start, inches - start)) / 12.0;
        }
        return 14 / 12.0;
    }

    // About how wide a text of capitals is drawn.
    static double textWidth(const std::string& text, double height) {
        return 0.75 * height * static_cast<double>(text.size());
    }

    std::array<std::string, 10> names_;
    EnginePorts ports_;
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
