10 ' PAINT without a colour takes the foreground, also as its border.
20 SCREEN 3:COLOR 7,,,5:CLS 3
30 LINE(100,100)-(300,300),,B:LINE(150,150)-(250,250),2,B:PAINT(120,120)
40 LINE(400,100)-(500,200),6,B:PAINT(450,150),,6
