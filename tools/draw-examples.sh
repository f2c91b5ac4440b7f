#!/usr/bin/env bash
# Draws the examples as png, svg, pdf and wmf: draw-examples.sh COMMAND FLORY FOLDER
set -euo pipefail
command=$(realpath "$1")
flory=$(realpath "$2")
mkdir -p "$3"
pictures=$(realpath "$3")
cd "$(dirname "$0")/../examples/data"
drawn=()

# draw NAME PROGRAM ARGUMENTS...: one picture in each format
draw() {
    local ending
    for ending in png svg pdf wmf; do
        "${@:2}" -o "$pictures/$1.$ending"
        drawn+=("$1.$ending")
    done
}

# Computed: two polystyrenes of different length in cyclohexane, and a blend with a diblock copolymer.
polystyrene=(--chains 300,9000 --weights 0.99,0.01 --chi -0.2956,243.29)
draw phase-diagram "$flory" "${polystyrene[@]}" --name "Polystyrene in cyclohexane"
draw three-phase-corner "$flory" "${polystyrene[@]}" --zoom three-phase \
    --name "Polystyrene in cyclohexane, three phases"
draw copolymer-blend "$flory" copolymer --homopolymers 50,50 --diblock 100 \
    --name "Blend of A, B and diblock A-B"

# Measured: symbols, with fitted curves.
draw chi-temperature "$command" plot ps_cyclohexane_chi_fit.txt \
    --symbols ps_cyclohexane_chi_dilute.txt --symbols-columns T_C,chi \
    --name "Polystyrene in cyclohexane, dilute" --symbol "c~G" --argument-symbol "t~i / °C~N" --no-legend

draw chi-composition "$command" plot --symbols ps_cyclohexane_chi_phi2.txt \
    --symbols-columns phi2,chi_cold,chi_warm \
    --name "Polystyrene in cyclohexane at 24 to 35 °C (squares), 44 to 65 °C (circles)" \
    --symbol "c~G" --argument-symbol "f~G2~L" --no-legend

draw critical-temperature "$command" plot ps_cyclohexane_critical_fit.txt \
    --symbols ps_cyclohexane_critical.txt --symbols-columns N_root,T_C \
    --name "Polystyrene in cyclohexane, critical temperature" \
    --symbol "T~ic~L / °C~N" --argument-symbol "N~i-1/2~H" --no-legend

# The viewer's window.
"$command" view ps_cyclohexane_diagram.json --screenshot "$pictures/viewer.png" --size 1000x700
drawn+=(viewer.png)

cd "$pictures"
echo "Drawn in $pictures:"
wc -c "${drawn[@]}" | head -n -1
