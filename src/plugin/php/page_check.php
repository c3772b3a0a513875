<?php

/**
 * Shows what a wallet sees of a name, when the button for that was pressed.
 */
function brasslet_show_check() {
	// phpcs:disable WordPress.Security.NonceVerification -- brasslet_prepare_page() has verified it.
	if ( ! isset( $_POST['brasslet_check'] ) ) {
		return;
	}
	$alias = sanitize_text_field( brasslet_string( wp_unslash( $_POST['brasslet_check'] ) ) );
	// phpcs:enable
	$row = brasslet_rows()[ $alias ] ?? null;
	if ( null === $row ) {
		brasslet_show_checked( 'error', 'That name is not published any more.', array() );
		return;
	}
	$found   = brasslet_ask_as_wallet( array( $row ) );
	$found   = is_wp_error( $found ) || ! brasslet_payments()['on'] ? $found : brasslet_ask_for_outputs( $row );
	$paymail = brasslet_handle( $row );
	if ( is_wp_error( $found ) ) {
		$unasked = 'brasslet_unasked' === $found->get_error_code();
		brasslet_show_checked(
			$unasked ? 'warning' : 'error',
			sprintf( $unasked ? 'Your server cannot check %s.' : 'Wallets cannot pay %s.', $paymail ),
			array( $found->get_error_message() ),
			$unasked ? brasslet_link( brasslet_document_url(), 'Open what wallets ask for first' ) : ''
		);
		return;
	}
	$seen = array(
		'Public key: ' . $row['pubkey'],
		'Address: ' . $row['address'],
		'Script: ' . brasslet_script( $row['address'] ),
	);
	if ( brasslet_payments()['on'] ) {
		$seen[] = 'Payments are handed over to this site.';
	}
	brasslet_show_checked( 'success', sprintf( 'Wallets can pay %s. They see:', $paymail ), $seen );
}

/**
 * Shows the result of a check where a screen reader comes to it first.
 *
 * @param string   $kind  One of "success", "warning" and "error".
 * @param string   $title What was found.
 * @param string[] $lines More about it.
 * @param string   $link  A link, as HTML; or empty.
 */
function brasslet_show_checked( $kind, $title, $lines, $link = '' ) {
	printf(
		'<div id="brasslet-checked" class="notice notice-%s inline" role="status" tabindex="-1">'
		. '<p><strong>%s</strong></p>',
		esc_attr( $kind ),
		esc_html( $title )
	);
	foreach ( $lines as $line ) {
		echo '<p class="brasslet-value">' . esc_html( $line ) . '</p>';
	}
	if ( '' !== $link ) {
		// phpcs:ignore WordPress.Security.EscapeOutput -- brasslet_link() has escaped the link.
		echo '<p>' . $link . '</p>';
	}
	echo '</div>';
}
