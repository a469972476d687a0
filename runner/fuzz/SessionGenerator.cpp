#include "runner/fuzz/SessionGenerator.h"

#include <climits>
#include <cmath>
#include <string>

#include "runner/GestureSteps.h"

namespace kystrake {

const char* const kFuzzSceneFile = "fuzz-scene.json";

std::uint64_t FuzzRandom::next() {
    std::uint64_t z = (state_ += 0x9e3779b97f4a7c15ULL);
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ULL;
    z = (z ^ (z >> 27)) * 0x94d049bb133111ebULL;
    return z ^ (z >> 31);
}

int FuzzRandom::between(int low, int high) {
    const std::uint64_t span = static_cast<std::uint64_t>(high - low) + 1;
    return low + static_cast<int>(next() % span);
}

double FuzzRandom::real(double low, double high) {
    return low + (high - low) * static_cast<double>(next() >> 11) / 9007199254740992.0;
}

bool FuzzRandom::chance(double probability) { return real(0.0, 1.0) < probability; }

namespace {

const char* const kContext = " kyStrakeContext1";

class StepMaker {
public:
    StepMaker(std::uint64_t seed, const FuzzView& view) : random_(seed), view_(view) {}

    // Appends one action of the artist's: one step, or the several steps of a gesture.
    void addAction(std::vector<Step>& steps) {
        const int roll = random_.between(0, 99);
        if (roll < 22) return addDragGesture(steps, MouseButton::kLeft);
        if (roll < 30) return addDragGesture(steps, MouseButton::kMiddle);
        if (roll < 42) return addClick(steps, randomPlace(), randomButton(), randomModifiers());
        if (roll < 46) return addStrayMouseEvent(steps);
        if (roll < 50) return steps.push_back(PointerMove{randomPixel()});
        if (roll < 60) return steps.push_back(Key{Key::Name::kEnter});
        if (roll < 63) return steps.push_back(Key{Key::Name::kEscape});
        if (roll < 67) return steps.push_back(Key{Key::Name::kBackspace});
        if (roll < 75) return steps.push_back(Command{editCommand()});
        if (roll < 77) return steps.push_back(Command{queryCommand()});
        if (roll < 81) return steps.push_back(optionVar());
        if (roll < 89) return addUndoRedoPair(steps);
        if (roll < 92) return steps.push_back(Undo{random_.between(1, 3)});
        if (roll < 94) return steps.push_back(Redo{random_.between(1, 3)});
        if (roll < 97) return steps.push_back(selection());
        if (roll < 98) return steps.push_back(cameraMove());
        if (roll < 99) return addSceneRoundTrip(steps);
        steps.push_back(Frame{"fuzz"});
    }

private:
    // Mostly where the source shows, in the middle of the view; sometimes anywhere in it, and now and
    // then far outside, as far as an event's short coordinates reach (what a session file may hold).
    Pixel randomPixel() {
        if (random_.chance(0.02))
            return {random_.between(-SHRT_MAX, SHRT_MAX), random_.between(-SHRT_MAX, SHRT_MAX)};
        if (random_.chance(0.1))
            return {random_.between(-20, view_.width + 20), random_.between(-20, view_.height + 20)};
        return {random_.between(view_.width / 5, view_.width * 4 / 5),
                random_.between(view_.height / 6, view_.height * 5 / 6)};
    }

    // A pixel, or a vertex of the retopo mesh (ids past its end fail the step, as they should).
    Place randomPlace() {
        if (random_.chance(0.6)) return randomPixel();
        return VertexPlace{"", random_.between(0, 120), {random_.between(-10, 10), random_.between(-10, 10)}};
    }

    MouseButton randomButton() { return random_.chance(0.5) ? MouseButton::kLeft : MouseButton::kMiddle; }
    Modifiers randomModifiers() { return {random_.chance(0.3), random_.chance(0.3)}; }

    // A hand-drawn line between two pixels, mostly roughly horizontal or vertical like a strake, of one
    // to forty drag events; sometimes a stroke that stays on one pixel.
    void addDragGesture(std::vector<Step>& steps, MouseButton button) {
        const Pixel from = randomPixel();
        Pixel to = randomPixel();
        if (random_.chance(0.5)) to[1] = from[1] + random_.between(-15, 15);
        if (random_.chance(0.05)) to = from;
        const int points = random_.between(1, 40);
        const std::vector<Pixel> path = bowedLine(from, to, points, random_.real(-20.0, 20.0));
        addDrag(steps, from, path, button, randomModifiers());
    }

    // A press, drag or release on its own, out of the order the host normally sends them.
    void addStrayMouseEvent(std::vector<Step>& steps) {
        const int kind = random_.between(0, 2);
        if (kind == 0) return steps.push_back(Press{randomPlace(), randomButton(), randomModifiers()});
        if (kind == 1) return steps.push_back(Drag{{randomPixel()}, randomButton(), randomModifiers()});
        steps.push_back(Release{randomPlace(), randomButton(), randomModifiers()});
    }

    void addUndoRedoPair(std::vector<Step>& steps) {
        const int times = random_.chance(0.8) ? 1 : random_.between(2, 4);
        steps.push_back(Undo{times});
        steps.push_back(Redo{times});
    }

    std::string boolean() { return random_.chance(0.5) ? " true" : " false"; }
    std::string number(double low, double high) { return " " + std::to_string(random_.real(low, high)); }

    // One or two edit flags of the context command, with random values.
    std::string editCommand() {
        std::string text = "kyStrakeContext -e";
        const int flags = random_.chance(0.8) ? 1 : 2;
        for (int i = 0; i < flags; ++i) text += editFlag();
        return text + kContext;
    }

    std::string editFlag() {
        switch (random_.between(0, 19)) {
            case 0:
                return " -u " + std::to_string(random_.between(0, 16)) + " -v " +
                       std::to_string(random_.between(0, 12));
            case 1:
                return " -rb true -rad" + number(0.0, 5.0) + " -i" + number(0.0, 1.0);
            case 2:
                return " -re true";
            case 3:
                return " -rp true";
            case 4:
                return " -fr" + boolean();
            case 5:
                return " -fm" + boolean();
            case 6:
                return " -dd" + number(-1.0, 5.0);
            case 7:
                return " -slc true";
            case 8:
                return " -b true";
            case 9:
                return " -fig " + std::to_string(random_.between(0, 1));
            case 10:
                return " -mvb" + boolean();
            case 11:
                return " -rv true";
            case 12:
                return " -pch" + number(-1.5, 1.5);
            case 13:
                return " -rmi" + number(-1.0, 50.0);
            case 14:
                return " -rri" + number(-1.0, 50.0);
            case 15:
                return " -iri" + number(-1.0, 2.0);
            case 16:
                return " -sbl true";
            case 17:
                return " -cmp true";
            case 18:
                return " -r" + boolean();
            default:
                return " -mt" + number(0.0, 1.0);
        }
    }

    std::string queryCommand() {
        const char* const flags[] = {" -u", " -v", " -fig"};
        return std::string("kyStrakeContext -q") + flags[random_.between(0, 2)] + kContext;
    }

    // An option variable of the tool's, with a value in its range or, now and then, out of it.
    SetOptionVar optionVar() {
        const bool odd = random_.chance(0.1);
        switch (random_.between(0, 12)) {
            case 0:
                return {"ky_uspan", odd ? random_.between(-3, 0) : random_.between(1, 16)};
            case 1:
                return {"ky_vspan", odd ? random_.between(-3, 0) : random_.between(1, 12)};
            case 2:
                return {"ky_bdiv", odd ? random_.between(-3, 0) : random_.between(1, 12)};
            case 3:
                return {"ky_distancesnap", random_.real(odd ? -1.0 : 0.0, 20.0)};
            case 4:
                return {"ky_glue", random_.between(0, 1)};
            case 5:
                return {"ky_lazyActive", random_.between(0, 1)};
            case 6:
                return {"ky_lazyDistance", random_.real(odd ? -5.0 : 0.0, 40.0)};
            case 7:
                return {"ky_lazyStrength", random_.real(odd ? -1.0 : 0.0, 1.0)};
            case 8:
                return {"ky_mergThreshold", random_.real(odd ? -1.0 : 0.0, 2.0)};
            case 9:
                return {"ky_strakeBackFace", random_.between(0, 1)};
            case 10:
                return {"ky_strakeIntens", random_.real(odd ? -1.0 : 0.0, 1.0)};
            case 11:
                return {"ky_strakeRadius", random_.real(odd ? -5.0 : 0.0, 60.0)};
            default:
                return {"ky_strakeTweakR", random_.real(odd ? -5.0 : 0.0, 60.0)};
        }
    }

    // The first or second mesh the tool may have made, or nothing; now and then the source, which
    // the tool then takes for the retopo mesh.
    Select selection() {
        if (random_.chance(0.1)) return Select{{"sourceMesh"}};
        const int pick = random_.between(0, 2);
        if (pick == 2) return Select{};
        return Select{{pick == 0 ? "kyMeshShape1" : "kyMeshShape2"}};
    }

    // The home camera orbited about its target and moved nearer or farther.
    // The scene saved and opened again at once, as an artist does between sittings.
    void addSceneRoundTrip(std::vector<Step>& steps) {
        steps.push_back(SaveScene{kFuzzSceneFile});
        steps.push_back(LoadScene{kFuzzSceneFile});
    }

    CameraPlacement cameraMove() {
        CameraPlacement camera = view_.home;
        const double angle = random_.real(-1.2, 1.2), rise = random_.real(-0.6, 0.6),
                     zoom = random_.real(0.5, 1.8);
        double offset[3];
        for (int i = 0; i < 3; ++i) offset[i] = camera.eye[i] - camera.target[i];
        const double x = offset[0] * std::cos(angle) + offset[2] * std::sin(angle);
        const double z = -offset[0] * std::sin(angle) + offset[2] * std::cos(angle);
        const double length = std::sqrt(x * x + offset[1] * offset[1] + z * z);
        camera.eye = {camera.target[0] + zoom * x, camera.target[1] + zoom * (offset[1] + rise * length),
                      camera.target[2] + zoom * z};
        return camera;
    }

    FuzzRandom random_;
    const FuzzView& view_;
};

}  // namespace

std::vector<Step> generateSteps(std::uint64_t seed, int count, const FuzzView& view) {
    StepMaker maker(seed, view);
    std::vector<Step> steps;
    while (static_cast<int>(steps.size()) < count) maker.addAction(steps);
    return steps;
}

}  // namespace kystrake
