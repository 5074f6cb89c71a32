10 ' An end before the start: the arc goes on through the full turn.
20 SCREEN 3:CLS 3
30 CIRCLE(100,100),60,2,5,1:CIRCLE(260,100),60,3,3.2,3:CIRCLE(420,100),60,4,6,0.5,0.7
40 CIRCLE(100,280),60,-5,-5,-1:CIRCLE(260,280),60,6,2,1.99,1.4
50 CIRCLE(420,280),60,5,1,9
