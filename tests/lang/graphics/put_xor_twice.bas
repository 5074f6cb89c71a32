10 ' A picture put twice by XOR leaves the screen as it was.
20 SCREEN 0:CLS 3:DIM A%(10)
30 CIRCLE(100,60),50,6,,,,F,2:GET@(40,30)-(160,90),A%
40 LINE(200,20)-(600,180),5,B:LINE(200,20)-(600,180),4
50 FOR I=0 TO 20:PUT@(190+I*11,20+I*3),A%:PUT@(190+I*11,20+I*3),A%,XOR:NEXT I
