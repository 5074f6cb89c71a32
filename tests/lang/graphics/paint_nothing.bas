10 ' A start on the border colour or off the screen draws nothing, but is the last point.
20 SCREEN 3:CLS 3
30 LINE(100,100)-(200,200),2,BF:PAINT(150,150),4,2:LINE-STEP(100,0),6
40 PAINT(-1,10),5:LINE-STEP(50,0),3:PAINT(640,20),5:LINE-STEP(-50,0),4
50 PAINT(10,-1),5:PAINT(10,400),5:PAINT(VAL("1E30"),5),5
