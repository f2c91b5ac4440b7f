#pragma once

/// A diagram file with every key. The tests name places in it, and damage it.
inline constexpr const char* FULL_DIAGRAM = R"({
  "format": "tessara-diagram",
  "version": 1,
  "note": ["any", {"kind": "of value"}, 7, null, true],
  "name": "Polystyrene in cyclohexane",
  "slide": "M~Nw~L",
  "x": {"symbol": "f~G", "format": "%.4lf", "scale": {"from": 0, "to": 0.4, "step": 0.1, "exponent": -1}},
  "y": {"symbol": "T~i", "format": "%.1lf", "scale": {"from": 260, "to": 300, "step": 10}},
  "binodal": [
    {"branch": "physical", "x": [0.05, 0.1, 0.2], "shadow": [0.1, null, 0.04], "y": [280, 290, 285],
     "columns": {"sigma": [1, 2, null]}},
    {"branch": "non-physical", "x": [0.2, null, 0.25, 0.3], "y": [285, 1e1, 280, 270]}
  ],
  "spinodal": [
    {"color": 0, "x": [0.06, 0.1], "y": [275, 280]},
    {"color": 3, "x": [0.1, 0.2], "y": [280, 265]}
  ],
  "critical": [[0.1, 290]],
  "lifshitz": [[0.2, 270], [0.25, 2.75e2]],
  "multiphase": [],
  "zoom": {"x": [0.05, 0.25], "y": [262, 295]},
  "boundaries": {"left": 0.01, "right": 0.3},
  "legend": true,
  "caption": false,
  "monochrome": true,
  "multiphasePoints": true
}
)";
