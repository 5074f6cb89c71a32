10 ' An angle of 0 is not below 0: no radius is drawn.
20 SCREEN 3:CLS 3:CIRCLE(100,100),50,7,1,0:PRINT POINT(50,100);POINT(125,100)
