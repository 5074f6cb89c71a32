10 ' In a 200-line mode a circle is half as high in rows, so that it looks round.
20 SCREEN 0:CLS 3
30 FOR R=1 TO 12:CIRCLE(R*48,30),R*2,R MOD 7+1:NEXT R
40 CIRCLE(200,120),100,4:CIRCLE(440,120),100,5,,,1:CIRCLE(440,120),61,3,,,0.25,F
