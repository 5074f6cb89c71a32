10 ' Circles of all small radii, and some large ones round each other.
20 SCREEN 3:CLS 3
30 FOR R=0 TO 12:CIRCLE(30+R*45,40),R,R MOD 7+1:NEXT R
40 FOR R=20 TO 150 STEP 13:CIRCLE(320,230),R,R MOD 7+1:NEXT R
