<?php

/*
 * The reference of a payment. It holds all that the site wants to know when the transaction comes, under a MAC: nothing
 * is stored for somebody who only asks. It says which name is paid, at which address, how much, and when that was
 * asked.
 */
define( 'BRASSLET_REFERENCE_RULE', '/^1\.([A-Za-z0-9_-]{1,400})\.([A-Za-z0-9_-]{43})$/D' );

/**
 * Makes a reference.
 *
 * @param array    $row      The name's row.
 * @param int      $satoshis The amount.
 * @param int|null $time     When it was asked for; now, when null.
 * @return string Characters that need no escaping in URLs and JSON; the first is the version of this form.
 */
function brasslet_make_reference( $row, $satoshis, $time = null ) {
	// No alias and no address has a blank in it.
	$text = brasslet_base64url( implode( ' ', array( $row['alias'], $row['address'], $satoshis, $time ?? time() ) ) );
	return '1.' . $text . '.' . brasslet_reference_mac( $text );
}

/**
 * Reads a reference, when this site has made it.
 *
 * @param string $reference The reference as it was given.
 * @return array|null Its "alias", "address", "satoshis" and "time"; null when this site has not made it.
 */
function brasslet_read_reference( $reference ) {
	if ( 1 !== preg_match( BRASSLET_REFERENCE_RULE, $reference, $part )
		|| ! hash_equals( brasslet_reference_mac( $part[1] ), $part[2] ) ) {
		return null;
	}
	// phpcs:ignore WordPress.PHP.DiscouragedPHPFunctions -- what brasslet_base64url() has made.
	$found = explode( ' ', base64_decode( strtr( $part[1], '-_', '+/' ) ) );
	return array(
		'alias'    => $found[0],
		'address'  => $found[1],
		'satoshis' => (int) $found[2],
		'time'     => (int) $found[3],
	);
}

/**
 * The MAC of a reference's text: one for each site of a network, and for each host.
 *
 * @param string $text The text.
 * @return string
 */
function brasslet_reference_mac( $text ) {
	$site = brasslet_host() . ' ' . get_current_blog_id() . ' ';
	return brasslet_base64url( hash_hmac( 'sha256', $site . $text, brasslet_reference_key(), true ) );
}

/**
 * The key of the MAC: made from the salts of this WordPress.
 *
 * Salts that wp-config.php does not have lie in the database, and whoever floods the site would have them looked up
 * each time. For such a site the switch has a secret beside it, as random and as near; see brasslet_payment_secret().
 *
 * @return string
 */
function brasslet_reference_key() {
	$secret = brasslet_payments()['secret'];
	return hash_hmac( 'sha256', 'brasslet payment reference 1', '' === $secret ? wp_salt( 'auth' ) : $secret, true );
}

/**
 * Says what secret belongs beside the switch.
 *
 * @return string Empty for a site that has its salts in wp-config.php.
 */
function brasslet_payment_secret() {
	// Has WordPress make the salts that are missing.
	wp_salt( 'auth' );
	$stored = false !== get_site_option( 'auth_key' ) || false !== get_site_option( 'auth_salt' );
	return $stored ? bin2hex( random_bytes( 32 ) ) : '';
}

/**
 * Writes bytes in the characters that URLs leave as they are (RFC 4648, section 5).
 *
 * @param string $bytes The bytes.
 * @return string
 */
function brasslet_base64url( $bytes ) {
	// phpcs:ignore WordPress.PHP.DiscouragedPHPFunctions -- bytes, and not something to hide.
	return rtrim( strtr( base64_encode( $bytes ), '+/', '-_' ), '=' );
}
