// Ranges in either direction, with offsets and of a single bit, set by parameters too.
module shifter #(parameter WIDTH = 4, parameter LOW = 0) (
    input clk,
    input [LOW+WIDTH-1:LOW] d,
    output reg [LOW:LOW+WIDTH-1] q
);
    localparam LAST = LOW + WIDTH - 1;
    reg [LAST:LOW] stage;
    reg signed [7:-8] fixed;
    wire parity = ^d;
    always @(posedge clk) begin
        stage <= d;
        fixed <= fixed + 1;
        q <= stage;
    end
endmodule
module top (input clk, input [31:8] address, input [0:0] one, output [0:7] up, output [5:5] five);
    wire [3:0] a, b;
    wire [8:5] c;
    integer count;
    reg never_used;
    wire [63:0] wide = {2{address, up}};
    assign c = address[11:8];
    assign five = one;
    always @(posedge clk) count <= count + 1;
    shifter first (.clk(clk), .d(address[11:8]), .q(a));
    shifter #(.LOW(5)) second (.clk(clk), .d(c), .q(b));
    shifter #(8, 1) third (clk, address[31:24], up);
endmodule

//= top:top clk never_used address[31:8] one[0:0] up[0:7] five[5:5] a[3:0] b[3:0] c[8:5] count[31:0] wide[63:0]
//= top/first:shifter clk parity d[3:0] q[0:3] stage[3:0] fixed[7:-8]
//= top/second:shifter clk parity d[8:5] q[5:8] stage[8:5] fixed[7:-8]
//= top/third:shifter clk parity d[8:1] q[1:8] stage[8:1] fixed[7:-8]
