#!/bin/sh
# Counts instructions a sentence, through the parser, the stream listener and the sentence adapter (a receiver of today,
# and one that sends the older form), and a smoothing step.
# usage: bench/instructions.sh PROGRAM   the built kest_gps_parse_once
# Needs valgrind. Two counts of rounds are measured and subtracted, so that start-up cancels out.
set -eu

program=$1
few=2
many=12
epochs=50   # a round, as in ParseOnce.cpp
sentences=9 # an epoch, as in Corpus.h
today=23    # an epoch of a receiver of today, as in Corpus.h

collected() {
    valgrind --tool=callgrind --callgrind-out-file=/dev/null "$program" "$1" "$2" 2>&1 |
        awk '/Collected/ { print $NF; found = 1 } END { exit !found }'
}

report() { # mode, what is counted, how many in an epoch
    first=$(collected "$1" "$few")
    second=$(collected "$1" "$many")
    echo "$1: $(((second - first) / ((many - few) * epochs * $3))) instructions a $2"
}

report parse sentence "$sentences"
report listen sentence "$sentences"
report adapt sentence "$today"
report adapt-older sentence "$sentences"
report smooth step 1
