10 ' A page keeps the low byte of a colour, and POINT gives it with a sign.
20 SCREEN 3:CLS 3:PSET(0,0),200:PSET(1,0),-1:PSET(2,0),256:PSET(3,0),127:PSET(4,0),128
30 PRINT POINT(0,0);POINT(1,0);POINT(2,0);POINT(3,0);POINT(4,0)
