// SPDX-License-Identifier: Apache-2.0
// The sample drawing batch program: turns the engine's drawing script
// (BASEe.sif) into a MicroStation V7 drawing BASEe.dgn with GDAL's ogr2ogr.
//
// The script, one instruction a line (lines starting with "*" are remarks):
//   SYMBOLOGY LEVEL COLOR WEIGHT STYLE   for the elements that follow
//   LINE X1 Y1 X2 Y2
//   SHAPE N X1 Y1 … XN YN                a closed shape
//   CIRCLE X Y R
//   ARC X Y R START SWEEP                degrees, counter-clockwise
//   TEXT X Y HEIGHT ANGLE TEXT…          the text's lower left corner
// Every other well-formed line is one element of the drawing.
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <numbers>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

struct Symbology {
    int level = 1, color = 0, weight = 0, style = 0;
};

// A JSON string; bytes that are not UTF-8 become "?", so a stray byte cannot spoil the file.
std::string jsonString(const std::string& s) {
    std::string out = "\"";
    for (size_t i = 0; i < s.size(); ++i) {
        const auto c = static_cast<unsigned char>(s[i]);
        if (c == '"' || c == '\\') {
            out += '\\';
            out += static_cast<char>(c);
        } else if (c < 0x20) {
            char buf[8];
            std::snprintf(buf, sizeof buf, "\\u%04x", c);
            out += buf;
        } else if (c < 0x80) {
            out += static_cast<char>(c);
        } else {
            const size_t n = c >= 0xf0 && c < 0xf5 ? 3 : c >= 0xe0 ? 2 : c >= 0xc2 ? 1 : 0;
            bool valid = n > 0;
            for (size_t k = 1; valid && k <= n; ++k)
                valid = i + k < s.size() && (static_cast<unsigned char>(s[i + k]) & 0xc0) == 0x80;
            if (!valid) {
                out += '?';
                continue;
            }
            out.append(s, i, n + 1);
            i += n;
        }
    }
    return out + "\"";
}

std::string number(double v) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%.6f", v);
    return buf;
}

std::string coordinates(const std::vector<std::pair<double, double>>& points) {
    std::string out = "[";
    for (size_t i = 0; i < points.size(); ++i)
        out += (i ? ",[" : "[") + number(points[i].first) + "," + number(points[i].second) + "]";
    return out + "]";
}

std::vector<std::pair<double, double>> arcPoints(double x, double y, double r, double start, double sweep) {
    std::vector<std::pair<double, double>> points;
    const int steps = std::max(2, static_cast<int>(std::ceil(std::abs(sweep) / 10)));
    for (int i = 0; i <= steps; ++i) {
        const double a = (start + sweep * i / steps) * std::numbers::pi / 180;
        points.emplace_back(x + r * std::cos(a), y + r * std::sin(a));
    }
    return points;
}

// One GeoJSON feature for a line of the script; empty for a line that is no element.
std::string feature(const std::string& line, Symbology& sym) {
    std::istringstream words(line);
    std::string verb;
    if (!(words >> verb) || verb[0] == '*') return {};
    if (verb == "SYMBOLOGY") {
        words >> sym.level >> sym.color >> sym.weight >> sym.style;
        return {};
    }
    std::string geometry, text, label;
    double x1, y1, x2, y2, r, start, sweep;
    if (verb == "LINE" && words >> x1 >> y1 >> x2 >> y2) {
        geometry = "{\"type\":\"LineString\",\"coordinates\":" + coordinates({{x1, y1}, {x2, y2}}) + "}";
    } else if (verb == "SHAPE") {
        size_t n = 0;
        std::vector<std::pair<double, double>> points;
        if (words >> n)
            for (size_t i = 0; i < n && words >> x1 >> y1; ++i)
                points.emplace_back(x1, y1);
        if (points.size() < 3 || points.size() != n) return {};
        points.push_back(points.front());
        geometry = "{\"type\":\"Polygon\",\"coordinates\":[" + coordinates(points) + "]}";
    } else if (verb == "CIRCLE" && words >> x1 >> y1 >> r) {
        // 36 sides: one element of the drawing (more than 38 points would make a complex shape).
        auto points = arcPoints(x1, y1, r, 0, 360);
        points.back() = points.front();
        geometry = "{\"type\":\"Polygon\",\"coordinates\":[" + coordinates(points) + "]}";
    } else if (verb == "ARC" && words >> x1 >> y1 >> r >> start >> sweep) {
        geometry = "{\"type\":\"LineString\",\"coordinates\":" + coordinates(arcPoints(x1, y1, r, start, sweep)) + "}";
    } else if (verb == "TEXT" && words >> x1 >> y1 >> r >> start) {
        std::getline(words >> std::ws, text);
        while (!text.empty() && (text.back() == '\r' || text.back() == ' '))
            text.pop_back();
        if (text.empty()) return {};
        // The DGN writer takes the text's height (in drawing units) and angle from an OGR label style.
        label = ",\"OGR_STYLE\":" + jsonString("LABEL(s:" + number(r) + "g,a:" + number(start) + ")");
        geometry = "{\"type\":\"Point\",\"coordinates\":[" + number(x1) + "," + number(y1) + "]}";
    } else {
        return {};
    }
    const std::string properties = "\"Level\":" + std::to_string(sym.level) +
                                   ",\"ColorIndex\":" + std::to_string(sym.color) +
                                   ",\"Weight\":" + std::to_string(sym.weight) +
                                   ",\"Style\":" + std::to_string(sym.style) + ",\"Text\":" + jsonString(text) + label;
    return "{\"type\":\"Feature\",\"properties\":{" + properties + "},\"geometry\":" + geometry + "}";
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: tarnwick-dgnbatch SCRIPTe.sif\n");
        return 2;
    }
    const std::string script = argv[1];
    const std::string suffix = "e.sif";
    if (script.size() < suffix.size() || script.compare(script.size() - suffix.size(), suffix.size(), suffix) != 0) {
        std::fprintf(stderr, "tarnwick-dgnbatch: %s is not a drawing script (NAMEe.sif)\n", script.c_str());
        return 2;
    }
    const std::string base = script.substr(0, script.size() - suffix.size());
    std::ifstream in(script, std::ios::binary);
    if (!in) {
        std::fprintf(stderr, "tarnwick-dgnbatch: cannot read %s\n", script.c_str());
        return 1;
    }
    std::string json = "{\"type\":\"FeatureCollection\",\"features\":[";
    std::string line;
    Symbology sym;
    bool first = true;
    while (std::getline(in, line)) {
        const std::string f = feature(line, sym);
        if (f.empty()) continue;
        json += (first ? "" : ",") + f;
        first = false;
    }
    json += "]}";
    // The intermediate file and the new drawing are made in a folder of our own beside the script, where no one
    // can have put a link to another file; the drawing is then renamed into place, over whatever has its name.
    const std::string dgn = base + "e.dgn";
    const auto slash = base.find_last_of('/');
    std::string work =
        (slash == std::string::npos ? std::string(".") : base.substr(0, slash)) + "/.tarnwick-dgnbatch-XXXXXX";
    if (!mkdtemp(work.data())) {
        std::fprintf(stderr, "tarnwick-dgnbatch: no folder for the drawing beside %s\n", script.c_str());
        return 1;
    }
    const std::string geojson = work + "/drawing.geojson", made = work + "/drawing.dgn";
    const int fd = open(geojson.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    const bool written = fd >= 0 && write(fd, json.data(), json.size()) == static_cast<ssize_t>(json.size());
    if (fd >= 0) close(fd);
    std::remove(dgn.c_str());

    int status = 1;
    if (written) {
        const pid_t pid = fork();
        if (pid == 0) {
            // Only the fields a design file has; the label style travels as the feature's style.
            if (first)
                execlp("ogr2ogr", "ogr2ogr", "-f", "DGN", made.c_str(), geojson.c_str(), static_cast<char*>(nullptr));
            else
                execlp("ogr2ogr", "ogr2ogr", "-f", "DGN", "-select", "Level,ColorIndex,Weight,Style,Text", made.c_str(),
                       geojson.c_str(), static_cast<char*>(nullptr));
            std::fprintf(stderr,
                         "tarnwick-dgnbatch: ogr2ogr (GDAL) is needed to write the drawing and was not found\n");
            _exit(127);
        }
        if (pid < 0 || waitpid(pid, &status, 0) < 0) status = 1;
    }
    const bool drawn =
        written && WIFEXITED(status) && WEXITSTATUS(status) == 0 && rename(made.c_str(), dgn.c_str()) == 0;
    std::remove(geojson.c_str());
    std::remove(made.c_str());
    rmdir(work.c_str());
    if (!drawn) {
        std::fprintf(stderr, "tarnwick-dgnbatch: the drawing %s could not be written\n", dgn.c_str());
        return 1;
    }
    return 0;
}
