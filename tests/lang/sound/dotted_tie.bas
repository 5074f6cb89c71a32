10 ' One dot lengthens the whole tie: 13,824 ticks.
20 PLAY "C4.^4D"
