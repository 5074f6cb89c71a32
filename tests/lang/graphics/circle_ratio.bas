10 ' Above 1 the ratio shortens the horizontal radius, below the vertical one.
20 SCREEN 3:CLS 3
30 CIRCLE(160,130),110,1,,,0.3:CIRCLE(160,130),110,2,,,3
40 CIRCLE(160,130),110,4,,,1:CIRCLE(160,130),110,6,,,0
50 CIRCLE(450,130),100,3,,,0.6,F:CIRCLE(450,300),90,5,,,1.7,F,1
60 FOR I=0 TO 8:CIRCLE(40+I*35,320),15,7,,,2^(I-4):NEXT I
