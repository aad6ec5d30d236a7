// Drives all inputs at random, with clocks that drift against each other, and with unknown bits now and then.
`timescale 1ns / 1ps
module mix_tb;
    reg         clk_a = 1'b0;
    reg         clk_b = 1'b0;
    reg         rst = 1'b1;
    reg  [7:0]  seed = 8'h00;
    wire [-1:6] result;
    wire [3:0]  taps;
    wire [7:0]  looked_up;
    integer     random = 1;
    mix dut (.clk_a(clk_a), .clk_b(clk_b), .rst(rst), .seed(seed), .result(result), .taps(taps),
             .looked_up(looked_up));
    always #5 clk_a = ~clk_a;
    always #7 clk_b = ~clk_b;
    always @(negedge clk_a) begin
        seed = $random(random);
        if ($random(random) % 16 == 0) seed[3] = 1'bx;
        if ($random(random) % 64 == 0) rst = 1'b1;
        else rst = 1'b0;
    end
    initial begin
        #40 rst = 1'b0;
        #12000 $finish;
    end
endmodule
