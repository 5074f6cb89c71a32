10 ' Channel 3 is compiled, channel 2 is at fault, channel 1 is not reached.
20 PLAY "C","N","E"
