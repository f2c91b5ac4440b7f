#!/usr/bin/env bash
# Draws the measured sets of examples/data as png, svg, pdf and wmf: draw-examples.sh COMMAND FOLDER
set -euo pipefail
command=$(realpath "$1")
mkdir -p "$2"
pictures=$(realpath "$2")
cd "$(dirname "$0")/../examples/data"
drawn=()

# draw NAME ARGUMENTS...: one picture in each format
draw() {
    local ending
    for ending in png svg pdf wmf; do
        "$command" plot "${@:2}" -o "$pictures/$1.$ending"
        drawn+=("$1.$ending")
    done
}

draw chi-temperature ps_cyclohexane_chi_fit.txt \
    --symbols ps_cyclohexane_chi_dilute.txt --symbols-columns T_C,chi \
    --name "Polystyrene in cyclohexane, dilute" --symbol "c~G" --argument-symbol "t, °C~N" --no-legend

draw chi-composition --symbols ps_cyclohexane_chi_phi2.txt --symbols-columns phi2,chi_cold,chi_warm \
    --name "Polystyrene in cyclohexane at 24 to 35 °C (squares), 44 to 65 °C (circles)" \
    --symbol "c~G" --argument-symbol "j~G2~L" --no-legend

draw critical-temperature ps_cyclohexane_critical_fit.txt \
    --symbols ps_cyclohexane_critical.txt --symbols-columns N_root,T_C \
    --name "Polystyrene in cyclohexane, critical temperature" \
    --symbol "T~Nc~L, °C~N" --argument-symbol "N~N-1/2~H" --no-legend

cd "$pictures"
echo "Drawn in $pictures:"
wc -c "${drawn[@]}" | head -n -1
