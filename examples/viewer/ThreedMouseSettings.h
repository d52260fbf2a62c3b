#pragma once

namespace viewer {

/// How the 3D mouse moves the view; kept from one session to the next.
struct ThreedMouseSettings {
    static constexpr int SlowestSpeed = 1;
    static constexpr int UsualSpeed = 5;
    static constexpr int FastestSpeed = 10;

    /// What one kind of motion of the device does.
    struct Motion {
        bool isUsed = true;
        bool isReversed = false;
    };

    int speed = UsualSpeed;
    Motion turn;
    Motion move;
    Motion zoom;
    bool swapsYAndZ = false; ///< pressing the device down zooms, and pulling it moves

    static ThreedMouseSettings kept();
    void keep() const;
    /// The speed as a factor: 1 for the usual one, twice as much two steps further.
    double speedFactor() const;
};

} // namespace viewer
