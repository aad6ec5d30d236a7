// Three clocks, one module several times, generate arrays, ranges that do not end at 0 or run upwards.
`timescale 1ns / 1ps
module divider #(parameter WIDTH = 4) (input wire clk, input wire rst, output wire slow);
    reg [WIDTH-1:0] count;
    always @(posedge clk or posedge rst)
        if (rst) count <= 0;
        else count <= count + 1'b1;
    assign slow = count[WIDTH-1];
endmodule
module lane #(parameter SEED = 1) (
    input wire clk, input wire rst, input wire [11:4] in, output reg [0:7] out);
    reg  [15:8] state = SEED;
    wire [0:7]  mixed = in ^ state;
    reg         odd; // not reset: unknown until the first clock
    always @(posedge clk)
        if (rst) begin
            state <= SEED;
            out   <= 8'h00;
        end else begin
            state <= {state[14:8], ^mixed};
            out   <= mixed + out;
        end
    always @(negedge clk)
        odd <= ^out;
endmodule
module mix (
    input  wire        clk_a,
    input  wire        clk_b,
    input  wire        rst,
    input  wire [7:0]  seed,
    output wire [-1:6] result,
    output wire [3:0]  taps,
    output reg  [7:0]  looked_up
);
    wire       slow;
    wire [7:0] lane_out [0:1];
    wire [7:0] chain [0:4];
    reg  [7:0] table_words [0:15];
    integer    i;
    reg        unset;
    wire [7:0] \odd.name/x = seed ^ 8'h0f;
    divider #(.WIDTH(3)) u_divide (.clk(clk_a), .rst(rst), .slow(slow));
    assign chain[0] = seed;
    genvar g, h;
    generate
        for (g = 0; g < 4; g = g + 1) begin : row
            wire [3:0] local_sum = chain[g][3:0] + g;
            lane #(.SEED(g + 1)) u_lane (.clk(g % 2 ? clk_b : clk_a), .rst(rst), .in(chain[g]), .out(chain[g+1]));
            for (h = 0; h < 2; h = h + 1) begin : col
                reg seen;
                always @(posedge clk_a) seen <= chain[g][h] & ~rst;
            end
        end
    endgenerate
    generate
        if (1) begin
            wire hidden = ^chain[4];
            assign taps[0] = hidden;
        end
    endgenerate
    counter u_count (.clk(slow), .rst(rst), .value(taps[3:1]), .stages());
    counter u_again (.clk(clk_b), .rst(rst), .value(), .stages());
    assign result = chain[4];
    initial for (i = 0; i < 16; i = i + 1) table_words[i] = i * 7;
    always @(posedge clk_b) begin
        if (taps[1]) table_words[seed[3:0]] <= chain[2];
        looked_up <= table_words[chain[3][3:0]];
    end
endmodule
