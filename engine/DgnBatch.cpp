// The sample drawing batch program: turns the engine's drawing script
// (BASEe.sif) into a MicroStation V7 drawing BASEe.dgn with GDAL's ogr2ogr.
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

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
    std::ostringstream json;
    json << "{\"type\":\"FeatureCollection\",\"features\":[";
    std::string line;
    bool first = true;
    while (std::getline(in, line)) {
        std::istringstream words(line);
        std::string verb;
        double x1, y1, x2, y2;
        if (!(words >> verb) || verb != "LINE" || !(words >> x1 >> y1 >> x2 >> y2)) continue;
        json << (first ? "" : ",") << "{\"type\":\"Feature\",\"properties\":{},\"geometry\":{\"type\":\"LineString\","
             << "\"coordinates\":[[" << x1 << ',' << y1 << "],[" << x2 << ',' << y2 << "]]}}";
        first = false;
    }
    json << "]}";
    const std::string geojson = base + "e.geojson";
    std::ofstream(geojson, std::ios::binary) << json.str();
    const std::string dgn = base + "e.dgn";
    std::remove(dgn.c_str());

    const pid_t pid = fork();
    if (pid == 0) {
        execlp("ogr2ogr", "ogr2ogr", "-f", "DGN", dgn.c_str(), geojson.c_str(), static_cast<char*>(nullptr));
        std::fprintf(stderr, "tarnwick-dgnbatch: ogr2ogr (GDAL) is needed to write the drawing and was not found\n");
        _exit(127);
    }
    int status = 0;
    if (pid < 0 || waitpid(pid, &status, 0) < 0) status = 1;
    std::remove(geojson.c_str());
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        std::fprintf(stderr, "tarnwick-dgnbatch: the drawing %s could not be written\n", dgn.c_str());
        return 1;
    }
    return 0;
}
