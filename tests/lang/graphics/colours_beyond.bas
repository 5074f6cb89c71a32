10 ' A colour beyond 15 counts by its low four bits on the screen.
20 SCREEN 3:CLS 3
30 LINE(10,30)-(100,40),16,BF:LINE(110,30)-(200,40),18,BF
40 LINE(210,30)-(300,40),-1,B:PSET(310,30),263
50 CIRCLE(400,60),30,21:LINE(500,20)-(600,100),31,BF
