10 DIM A(-5):PRINT "on"
20 A(0)=1
