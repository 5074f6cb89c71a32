10 ' A line and the same line from its other end erase each other without a trace.
20 SCREEN 3:CLS 3
30 FOR I=0 TO 63:LINE(10+I,20)-(630,30+I*5),3:NEXT I
40 FOR I=0 TO 63:LINE(630,30+I*5)-(10+I,20),0:NEXT I
50 LINE(0,390)-(639,399),7
